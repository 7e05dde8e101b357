#include "operations/told_backup.h"

#include <algorithm>

#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

std::string lastName(const std::filesystem::path& path) {
    return (path.has_filename() ? path.filename() : path.parent_path().filename()).string();
}

void addSentence(std::string& text, const std::string& sentence) {
    text += text.empty() || sentence.empty() ? sentence : " " + sentence;
}

/// "Loops 3 and 5 were written."; nothing of none.
std::string sentenceOn(const std::vector<SlotNumber>& slots, const char* one, const char* more) {
    return slots.empty() ? "" : listOf(slots) + (slots.size() == 1 ? one : more);
}

/// The one that `trouble` is about.
std::string loopWith(const Outcome& outcome) {
    const auto* const failed = outcome.firstFailure();
    return failed == nullptr ? "a loop" : loopNames({failed->slot});
}

std::string reasonOf(Deed deed, const Outcome& outcome, const Trouble& trouble) {
    return trouble.kind == Kind::cancelled ? "stopped" : reasonFor(deed, trouble, loopWith(outcome));
}

/// What became of each loop of a restore that did not come to its end.
std::string whereabouts(const RestorePlan& plan, const Outcome& outcome) {
    std::vector<SlotNumber> written;
    std::vector<SlotNumber> erased;
    std::vector<SlotNumber> untouched;
    std::string others;
    const bool unsureOfErased = outcome.unseen != 0 || (outcome.doubt && outcome.doubt->did == Did::erased);
    for (const auto slot : changesOf(plan)) {
        const bool writes = plan.writes.contains(slot);
        const auto done = std::ranges::find(outcome.slots, slot, &SlotOutcome::slot);
        if (done != outcome.slots.end() && done->trouble) {
            addSentence(others, slotSentence(writes ? "written" : "erased", *done));
        } else if (done != outcome.slots.end()) {
            (writes ? written : erased).push_back(slot);
        } else if (!(outcome.doubt && outcome.doubt->slot == slot) && (writes || !unsureOfErased)) {
            untouched.push_back(slot);
        }
    }
    auto text = sentenceOn(written, " was written.", " were written.");
    addSentence(text, sentenceOn(erased, " was erased.", " were erased."));
    addSentence(text, others);
    addSentence(text, unsureOfErased  ? "Some of the loops may have been erased."
                      : outcome.doubt ? doubtSentence(*outcome.doubt)
                                      : "");
    addSentence(text, sentenceOn(untouched, " was not touched.", " were not touched."));
    return text;
}

}  // namespace

std::string backupReason(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::noBackup:
            return "it is not there any more";
        case Kind::backupIncomplete:
            return "it is not complete";
        case Kind::backupForeign:
            return "its index is not one of a backup";
        case Kind::backupDamaged:
            return "its index is damaged";
        case Kind::backupNewer:
            return "a newer version of this program wrote it";
        case Kind::backupTooLong:
            return "it is longer than the pedal's 24 minutes";
        case Kind::unreadable:
            return "it cannot be read";
        case Kind::damaged:
            return lastName(trouble.where) + " is missing or has been changed";
        default:
            return reasonFor(Deed::write, trouble);
    }
}

Told toldBackup(const BackupEnd& end, const std::vector<SlotNumber>& asked,
                const std::filesystem::path& folder) {
    const auto& outcome = end.outcome;
    if (!outcome.begun && outcome.end && outcome.end->kind == Kind::busy) {
        return told(Deed::save, outcome, asked);
    }
    Told result{.what = loopsText(outcome.wanted) + " backed up in " + lastName(folder),
                .names = {folder.string(), lastName(folder)}};
    if (outcome.whole()) {
        const auto kept =
            static_cast<std::size_t>(std::ranges::count(outcome.slots, Did::kept, &SlotOutcome::did));
        result.detail = kept == 0                ? ""
                        : kept == outcome.wanted ? "All of them were there already."
                                                 : std::to_string(kept) + " of them " +
                                                       (kept == 1 ? "was" : "were") + " there already.";
        return result;
    }
    const auto saved = outcome.done();
    result.what = saved == 0 ? "Nothing was backed up" : "The backup is not complete";
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = trouble->kind == Kind::folder ? "its folder cannot be made"
                                                   : reasonOf(Deed::save, outcome, *trouble);
        result.detail = trouble->kind == Kind::folder ? fileRemedy(trouble->error) : adviceOn(*trouble);
    }
    if (saved != 0) {
        addSentence(result.detail, std::to_string(saved) + " of " + loopsText(outcome.wanted) +
                                       (saved == 1 ? " was" : " were") +
                                       " saved. The next backup in this folder continues from there.");
    }
    return result;
}

std::vector<SlotNumber> changesOf(const RestorePlan& plan) {
    auto changes = plan.erases;
    for (const auto& [slot, info] : plan.writes) {
        changes.push_back(slot);
    }
    std::ranges::sort(changes);
    return changes;
}

Losses lossesOf(const RestorePlan& plan) {
    Losses losses{.replaced = {}, .erased = plan.erases};
    for (const auto& [slot, info] : plan.writes) {
        if (info.occupied) {
            losses.replaced.push_back(slot);
        }
    }
    return losses;
}

std::string lossQuestion(const Losses& losses) {
    const auto replaces = losses.replaced.empty() ? "" : "replaces " + loopsText(losses.replaced.size());
    const auto erases = losses.erased.empty() ? "" : "erases " + loopsText(losses.erased.size());
    return "Restoring " + replaces + (replaces.empty() || erases.empty() ? "" : " and ") + erases +
           " on the 7306. Would you like to continue?";
}

Told toldRestore(const RestorePlan& plan, const Outcome& outcome) {
    const auto writes = plan.writes.size();
    const auto erases = plan.erases.size();
    if (outcome.whole() && outcome.wanted == 0) {
        return {.what = "The pedal already has all loops of this backup", .detail = "Nothing was changed."};
    }
    if (outcome.whole()) {
        return {.what = writes == 0 ? loopsText(erases) + " erased"
                                    : loopsText(writes) + " restored" +
                                          (erases == 0 ? "" : ", " + std::to_string(erases) + " erased"),
                .detail =
                    writes == 0 ? "" : "What was written was read back and is the same, sample for sample."};
    }
    if (!outcome.begun && outcome.end && outcome.end->kind == Kind::busy) {
        return told(Deed::write, outcome, changesOf(plan));
    }
    Told result{.what = "Nothing was restored"};
    if (outcome.begun) {
        result.what =
            std::to_string(outcome.done()) + " of " + std::to_string(outcome.wanted) + " changes made";
        result.detail = whereabouts(plan, outcome);
    }
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = reasonOf(Deed::write, outcome, *trouble);
        addSentence(result.detail, adviceOn(*trouble));
    }
    return result;
}

Told toldNotRestored(const Trouble& why) {
    const bool stopped = why.kind == Kind::cancelled;
    return {.what = "Nothing was restored",
            .why = stopped ? "stopped" : backupReason(why),
            .detail = why.kind == Kind::noRoom
                          ? "Erase loops on the pedal, or tick \"Erase loops that are not in this backup\"."
                          : adviceOn(why),
            .failure = !stopped};
}

}  // namespace kzq
