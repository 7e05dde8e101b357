#pragma once

#include "ctl/commands/pedal_command.h"
#include "operations/backup.h"

namespace kzq::ctl {

/// Copies every loop into a new dated folder beside those of earlier backups; or lists these, without a
/// pedal.
class BackupCommand : public PedalCommand {
  public:
    explicit BackupCommand(Context context);

    std::optional<ExitCode> obstructed() override;
    bool withoutPedal() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    void tell(const SlotOutcome& outcome);
    ExitCode conclude(const BackupEnd& end);

    Generations generations_;
};

}  // namespace kzq::ctl
