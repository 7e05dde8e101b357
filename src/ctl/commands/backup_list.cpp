#include "ctl/commands/backup_list.h"

#include <nlohmann/json.hpp>
#include <optional>

#include "ctl/speech/format.h"
#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq::ctl {

namespace {

/// Why it is of no use, if it is.
std::optional<Trouble> tell(const Snapshot& snapshot, bool complete, Report& report) {
    const auto index = complete ? snapshot.folder.index() : snapshot.folder.partialIndex();
    if (!index) {
        if (complete) {
            report.tell("snapshot", {{"snapshot", snapshot.name}, {"complete", false}, {"damaged", true}},
                        snapshot.name + ": cannot be used.");
        }
        return index.error();
    }
    std::uint64_t frames = 0;
    for (const auto& [slot, entry] : index->loops) {
        frames += entry.samples;
    }
    report.tell("snapshot",
                {{"snapshot", snapshot.name},
                 {"complete", complete},
                 {"loops", index->loops.size()},
                 {"samples", frames}},
                snapshot.name + ": " + loopsText(index->loops.size()) + ", " + lengthText(frames) + ".");
    return std::nullopt;
}

}  // namespace

ExitCode listBackups(const Generations& generations, Report& report) {
    const auto snapshots = generations.snapshots();
    const auto unfinished = generations.unfinished();
    if (snapshots.empty() && unfinished.empty()) {
        const auto none = generations.find({});
        const auto trouble = none ? Trouble{Trouble::Kind::noBackup, generations.path()} : none.error();
        return report.stopped(trouble, backupSentence(trouble));
    }
    std::optional<Trouble> bad;
    for (const auto& snapshot : snapshots) {
        if (const auto trouble = tell(snapshot, true, report)) {
            bad = bad ? bad : trouble;
        }
    }
    for (const auto& snapshot : unfinished) {
        static_cast<void>(tell(snapshot, false, report));  // one without an index has nothing in it
    }
    if (bad) {
        return report.stopped(*bad, backupSentence(*bad));
    }
    report.tell("finished", {{"exit", 0}}, {});
    return ExitCode::ok;
}

}  // namespace kzq::ctl
