#pragma once

#include "ctl/pedal_job.h"

namespace kzq::ctl {

/// Empties slots.
class EraseCommand : public PedalJob {
  public:
    using PedalJob::PedalJob;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::vector<std::uint8_t> occupied(const Loops& loops);
};

/// Erases and looks afterwards which loops are gone; the others are reported and counted as failures. Nothing
/// when the work has ended, otherwise what the pedal holds now.
std::optional<Loops> eraseAndLook(PedalWorker& pedal, JobReport& report,
                                  const std::vector<std::uint8_t>& slots, Tally& tally);

}  // namespace kzq::ctl
