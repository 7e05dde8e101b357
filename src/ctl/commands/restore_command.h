#pragma once

#include "ctl/commands/pedal_command.h"
#include "operations/restore.h"

namespace kzq::ctl {

/// Makes the audio of the pedal's loops that of a backup.
class RestoreCommand : public PedalCommand {
  public:
    explicit RestoreCommand(Context context);

    std::optional<ExitCode> obstructed() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    ExitCode restore(Pedal& pedal, const RestorePlan& plan);
    void tell(const RestorePlan& plan);
    void tellChange(SlotNumber slot, const char* change, const std::string& what);
    void tell(const RestorePlan& plan, const SlotOutcome& outcome);

    BackupFolder folder_;
};

}  // namespace kzq::ctl
