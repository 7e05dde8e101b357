#pragma once

#include <optional>
#include <string>

#include "ctl/commands/pedal_command.h"
#include "operations/generations.h"
#include "operations/restore.h"

namespace kzq::ctl {

/// Makes the audio of the pedal's loops that of a backup.
class RestoreCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

    std::optional<ExitCode> obstructed() override;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    Result<BackupIndex> find();
    ExitCode restore(Pedal& pedal, const RestorePlan& plan);
    void tell(const RestorePlan& plan);
    void tellChange(SlotNumber slot, const char* change, const std::string& what);
    void tell(const RestorePlan& plan, const SlotOutcome& outcome);

    std::optional<RestoreOrder> order_;
    std::string name_;  ///< of the backup
};

}  // namespace kzq::ctl
