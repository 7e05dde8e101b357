#pragma once

#include "ctl/pedal_job.h"

namespace kzq::ctl {

/// Shows what the pedal holds.
class ListCommand : public PedalJob {
  public:
    using PedalJob::PedalJob;

  protected:
    ExitCode work(PedalWorker& pedal) override;
};

}  // namespace kzq::ctl
