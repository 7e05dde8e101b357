#include "app/backup_flow.h"

#include <system_error>
#include <utility>

#include "app/app_parts.h"
#include "app/set_up.h"
#include "app/show_folder.h"
#include "app/transfer_events.h"
#include "loops/facts.h"
#include "operations/told_backup.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr auto backupJob = "backup";

/// One backup, from the press of the button on. Its parts are used on the main thread only.
class BackUp {
  public:
    BackUp(AppParts& parts, std::filesystem::path folder) : parts_(parts), folder_(std::move(folder)) {}

    void work(Run& run) {
        if (!run.idle()) {
            return;
        }
        run.letPanelsClose();
        if (!run.ask([&] { return start(run); }).value_or(false)) {
            return;
        }
        const auto awake = run.keepAwake(AwakeFor::transfer);
        const auto end = save(*run.pedal);
        if (end.outcome.whole() && backedUp_) {
            backedUp_();
        }
        run.ask([&] { finish(run, end); });
    }

  private:
    bool start(Run& run) {
        const auto& loops = parts_.model.table();
        if (loops.empty()) {
            return false;
        }
        freeSpace_ = parts_.environment.freeSpace;
        backedUp_ = parts_.environment.backedUp;
        isUsual_ = folder_ == parts_.environment.backups;
        const auto total = bytesToRead(loops);
        parts_.transferPanel.open(total, words("7306 Back Up"),
                                  words(loops.size(), "Backing up %n loop from the 7306...",
                                        "Backing up %n loops from the 7306..."));
        run.turn.cover();
        work_ = parts_.teller.newWork();
        events_ = eventsOf(parts_.transferPanel.follow(run.poster(), total),
                           parts_.teller.followerInWords(work_, run.poster()));
        return true;
    }

    /// On the run's thread: of what the pedal holds now.
    BackupEnd save(Pedal& pedal) {
        auto status = pedal.status();
        if (!status) {
            return {.outcome = {.end = status.error()}, .snapshot = {}};
        }
        if (status->loops.empty()) {
            return {.outcome = {.end = Trouble{Trouble::Kind::changed, words("the last loop"), 0, "erased"}},
                    .snapshot = {}};
        }
        for (const auto& [slot, loop] : status->loops) {
            asked_.push_back(slot);
        }
        if (isUsual_) {
            std::error_code ignored;  // then its own folder cannot be made either
            std::filesystem::create_directories(folder_.parent_path(), ignored);
        }
        return runBackup(pedal,
                         {.generations = Generations(folder_), .status = *status, .freeSpace = freeSpace_},
                         events_);
    }

    void finish(Run& run, const BackupEnd& end) {
        run.end(end.outcome, [&] {
            parts_.transferPanel.close();
            run.refresh();
        });
        const auto* const trouble = mainTrouble(end.outcome);
        if (trouble != nullptr && end.outcome.done() == 0 && isMissingRule(*trouble)) {
            parts_.teller.tell(toldMissingRule(*trouble), backupJob, settingUp(parts_, *trouble, {}));
        } else {
            const Remedy again{words("Try again"), [&parts = parts_, folder = folder_] {
                                   const bool can = !parts.flows->starting() && !parts.flows->running();
                                   if (can) {
                                       beginBackup(parts, folder);
                                   }
                                   return can;
                               }};
            parts_.teller.tell(toldBackup(end, asked_, folder_), backupJob,
                               end.outcome.whole()            ? showing(parts_.environment, folder_)
                               : parts_.model.table().empty() ? Remedy()
                                                              : again);
        }
        parts_.teller.idle(work_);
    }

    AppParts& parts_;
    const std::filesystem::path folder_;
    bool isUsual_ = false;
    FreeSpace freeSpace_;
    std::function<void()> backedUp_;
    std::vector<SlotNumber> asked_;
    Teller::Work work_ = 0;
    Events events_;
};

}  // namespace

void beginBackup(AppParts& parts, const std::filesystem::path& folder) {
    parts.flows->start(transferPatience,
                       [flow = std::make_shared<BackUp>(parts, folder)](Run& run) { flow->work(run); });
}

}  // namespace kzq
