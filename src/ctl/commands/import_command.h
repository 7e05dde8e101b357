#pragma once

#include "ctl/commands/pedal_command.h"
#include "operations/import.h"

namespace kzq::ctl {

/// Copies loops into files.
class ImportCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

    std::optional<ExitCode> obstructed() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    ImportOrder order(const Loops& loops) const;
    void tell(const SlotOutcome& outcome);
};

}  // namespace kzq::ctl
