#pragma once

#include "ctl/commands/pedal_command.h"
#include "loops/slot_number.h"

namespace kzq::ctl {

/// Empties slots.
class EraseCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::vector<SlotNumber> occupied(const Loops& loops);
};

/// Erases and looks afterwards which loops are gone; the others are reported and counted as failures. Nothing
/// when the work has ended, otherwise what the pedal holds now.
std::optional<Loops> eraseAndLook(PedalWorker& pedal, Report& report, const std::vector<SlotNumber>& slots,
                                  Tally& tally);

}  // namespace kzq::ctl
