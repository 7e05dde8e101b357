#pragma once

#include "ctl/commands/worker_command.h"
#include "ctl/speech/progress_line.h"
#include "loops/export_info.h"
#include "operations/backup_folder.h"

namespace kzq::ctl {

/// Makes the audio of the pedal's loops that of a backup.
class RestoreCommand : public WorkerCommand {
  public:
    explicit RestoreCommand(Context context);

    std::optional<Explanation> obstacle() override;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::optional<Explanation> verifyFiles(const PedalWorker& pedal) const;

    std::optional<Explanation> findChanges(PedalWorker& pedal, const Loops& loops);
    std::optional<bool> isSame(PedalWorker& pedal, SlotNumber slot, const Loop& loop);
    void planWrite(SlotNumber slot, const Loop* old);
    void planErase(SlotNumber slot, const Loop& old);
    std::string question() const;

    void change(PedalWorker& pedal, Loops loops);
    void write(PedalWorker& pedal, Loops loops, std::vector<SlotNumber> untouched);
    std::string summary(const PedalWorker& pedal) const;

    BackupFolder folder_;
    BackupIndex index_;
    std::shared_ptr<ProgressLine> progress_;
    std::size_t same_ = 0;
    std::vector<SlotNumber> erased_;  ///< slots that the backup has empty
    std::vector<SlotNumber> lost_;    ///< all slots whose audio goes
    Exports writes_;
    Tally tally_;
};

}  // namespace kzq::ctl
