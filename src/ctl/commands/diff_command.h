#pragma once

#include <optional>

#include "ctl/commands/pedal_command.h"
#include "operations/backup_diff.h"
#include "operations/generations.h"

namespace kzq::ctl {

/// Says in which loops the pedal and a backup differ.
class DiffCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

    std::optional<ExitCode> obstructed() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    void tell(const BackupDiff& diff, const SlotOutcome& outcome);

    std::optional<Snapshot> snapshot_;
    BackupIndex index_;
};

}  // namespace kzq::ctl
