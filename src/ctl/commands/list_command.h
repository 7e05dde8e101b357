#pragma once

#include "ctl/commands/pedal_command.h"

namespace kzq::ctl {

/// Shows what the pedal holds.
class ListCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(Pedal& pedal) override;
};

}  // namespace kzq::ctl
