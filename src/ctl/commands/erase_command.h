#pragma once

#include "ctl/commands/pedal_command.h"

namespace kzq::ctl {

/// Empties slots.
class EraseCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::vector<std::uint8_t> occupied(const Loops& loops);
};

/// Erases and looks afterwards which loops are gone; the others are reported and counted as failures. Nothing
/// when the work has ended, otherwise what the pedal holds now.
std::optional<Loops> eraseAndLook(PedalWorker& pedal, Report& report, const std::vector<std::uint8_t>& slots,
                                  Tally& tally);

}  // namespace kzq::ctl
