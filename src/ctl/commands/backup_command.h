#pragma once

#include "ctl/commands/pedal_command.h"
#include "operations/backup.h"

namespace kzq::ctl {

/// Copies every loop into a folder with an index; compares when the folder holds a complete backup already.
class BackupCommand : public PedalCommand {
  public:
    explicit BackupCommand(Context context);

    std::optional<ExitCode> obstructed() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    void tell(const SlotOutcome& outcome);
    void tellCompared(const BackupPlan& plan, const SlotOutcome& outcome);
    ExitCode concludeSaved(const Outcome& outcome);
    ExitCode concludeCompared(const Outcome& outcome);

    BackupFolder folder_;
};

}  // namespace kzq::ctl
