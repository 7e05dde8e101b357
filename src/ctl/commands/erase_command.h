#pragma once

#include <vector>

#include "ctl/commands/pedal_command.h"

namespace kzq::ctl {

/// Empties slots.
class EraseCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    std::vector<SlotNumber> occupied(const Loops& loops);
    void tell(const SlotOutcome& outcome);
};

}  // namespace kzq::ctl
