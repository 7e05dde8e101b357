#pragma once

#include "ctl/firmware_offer.h"
#include "ctl/pedal_job.h"

namespace kzq::ctl {

/// Shows the firmware that the pedal runs and the one that is offered.
class FirmwareCommand : public PedalJob {
  public:
    using PedalJob::PedalJob;

  protected:
    bool takesLoader() const override { return true; }
    ExitCode work(PedalWorker& pedal) override;

  private:
    void show(const std::string& installed, const Result<FirmwareOffer>& offer);
};

}  // namespace kzq::ctl
