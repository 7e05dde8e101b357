#pragma once

#include "ctl/commands/worker_command.h"
#include "ctl/speech/progress_line.h"
#include "operations/backup_folder.h"

namespace kzq::ctl {

/// Copies every loop into a folder with an index; compares when the folder holds a complete backup already.
class BackupCommand : public WorkerCommand {
  public:
    explicit BackupCommand(Context context);

    std::optional<Explanation> obstacle() override;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    ExitCode save(PedalWorker& pedal, const Status& status, BackupIndex index);
    bool saveLoop(PedalWorker& pedal, const Loop& loop, BackupIndex& index);
    bool storeLoop(const Loop& loop, const Bytes& image, BackupIndex& index);
    ExitCode finish(PedalWorker& pedal, const Status& status, const BackupIndex& index);
    void keepWhatIsThere(const Loops& loops, BackupIndex& index);

    ExitCode compare(PedalWorker& pedal, const Loops& loops, const BackupIndex& index);
    void compareLoop(PedalWorker& pedal, SlotNumber slot, const Loop* loop, const BackupEntry* entry);
    void compareAudio(PedalWorker& pedal, SlotNumber slot, const Loop& loop, const BackupEntry& entry);
    void differs(SlotNumber slot, const std::string& how);

    void startProgress(const Loops& loops);
    std::optional<Bytes> read(PedalWorker& pedal, SlotNumber slot);

    BackupFolder folder_;
    std::shared_ptr<ProgressLine> progress_;
    Tally tally_;
};

}  // namespace kzq::ctl
