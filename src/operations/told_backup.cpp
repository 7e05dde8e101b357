#include "operations/told_backup.h"

#include <algorithm>

#include "loops/facts.h"
#include "operations/sentences.h"
#include "words/words.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

std::string lastName(const std::filesystem::path& path) {
    return (path.has_filename() ? path.filename() : path.parent_path().filename()).string();
}

/// The one that `trouble` is about.
std::string loopWith(const Outcome& outcome) {
    const auto* const failed = outcome.firstFailure();
    return failed == nullptr ? words("a loop") : loopNames({failed->slot});
}

std::string reasonOf(Deed deed, const Outcome& outcome, const Trouble& trouble) {
    return trouble.kind == Kind::cancelled ? words("stopped") : reasonFor(deed, trouble, loopWith(outcome));
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
            others = inTurn(others, slotSentence(writes ? "written" : "erased", *done));
        } else if (done != outcome.slots.end()) {
            (writes ? written : erased).push_back(slot);
        } else if (!(outcome.doubt && outcome.doubt->slot == slot) && (writes || !unsureOfErased)) {
            untouched.push_back(slot);
        }
    }
    std::string text;
    for (const auto& sentence :
         {written.empty() ? ""
                          : words(written.size(), "%1 was written.", "%1 were written.", listOf(written)),
          erased.empty() ? "" : words(erased.size(), "%1 was erased.", "%1 were erased.", listOf(erased)),
          others,
          unsureOfErased  ? words("Some of the loops may have been erased.")
          : outcome.doubt ? doubtSentence(*outcome.doubt)
                          : "",
          untouched.empty()
              ? ""
              : words(untouched.size(), "%1 was not touched.", "%1 were not touched.", listOf(untouched))}) {
        text = inTurn(text, sentence);
    }
    return text;
}

}  // namespace

std::string backupReason(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::noBackup:
            return words("it is not there any more");
        case Kind::backupIncomplete:
            return words("it is not complete");
        case Kind::backupForeign:
            return words("its index is not one of a backup");
        case Kind::backupDamaged:
            return words("its index is damaged");
        case Kind::backupNewer:
            return words("a newer version of this program wrote it");
        case Kind::backupTooLong:
            return words("it is longer than the pedal's 24 minutes");
        case Kind::unreadable:
            return words("it cannot be read");
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
    Told result{.what = words(outcome.wanted, "%n loop backed up in %1", "%n loops backed up in %1",
                              lastName(folder)),
                .names = {folder.string(), lastName(folder)}};
    if (outcome.whole()) {
        const auto kept =
            static_cast<std::size_t>(std::ranges::count(outcome.slots, Did::kept, &SlotOutcome::did));
        result.detail = kept == 0 ? ""
                        : kept == outcome.wanted
                            ? words("All of them were there already.")
                            : words(kept, "%n of them was there already.", "%n of them were there already.");
        return result;
    }
    const auto saved = outcome.done();
    result.what = words(saved == 0 ? "Nothing was backed up" : "The backup is not complete");
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = trouble->kind == Kind::folder ? words("its folder cannot be created")
                                                   : reasonOf(Deed::save, outcome, *trouble);
        result.detail = trouble->kind == Kind::folder ? fileRemedy(trouble->error) : adviceOn(*trouble);
    }
    if (saved != 0) {
        result.detail =
            inTurn(result.detail,
                   words(saved, "%n of %1 was saved. The next backup in this folder continues from there.",
                         "%n of %1 were saved. The next backup in this folder continues from there.",
                         loopsText(outcome.wanted)));
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
    const auto replaced = losses.replaced.size();
    const auto erased = losses.erased.size();
    return erased == 0
               ? words(replaced, "Restoring replaces %n loop on the 7306. Would you like to continue?",
                       "Restoring replaces %n loops on the 7306. Would you like to continue?")
           : replaced == 0
               ? words(erased, "Restoring erases %n loop on the 7306. Would you like to continue?",
                       "Restoring erases %n loops on the 7306. Would you like to continue?")
               : words("Restoring replaces %1 and erases %2 on the 7306. Would you like to continue?",
                       loopsText(replaced), loopsText(erased));
}

Told toldRestore(const RestorePlan& plan, const Outcome& outcome) {
    const auto writes = plan.writes.size();
    const auto erases = plan.erases.size();
    if (outcome.whole() && outcome.wanted == 0) {
        return {.what = words("The pedal already has all loops of this backup"),
                .detail = words("Nothing was changed.")};
    }
    if (outcome.whole()) {
        return {.what = writes == 0   ? words(erases, "%n loop erased", "%n loops erased")
                        : erases == 0 ? words(writes, "%n loop restored", "%n loops restored")
                                      : words(writes, "%n loop restored, %1 erased",
                                              "%n loops restored, %1 erased", erases),
                .detail = writes == 0
                              ? ""
                              : words("What was written was read back and is the same, sample for sample.")};
    }
    if (!outcome.begun && outcome.end && outcome.end->kind == Kind::busy) {
        return told(Deed::write, outcome, changesOf(plan));
    }
    Told result{.what = words("Nothing was restored")};
    if (outcome.begun) {
        result.what = words(outcome.wanted, "%1 of %n changes made", "%1 of %n changes made", outcome.done());
        result.detail = whereabouts(plan, outcome);
    }
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = reasonOf(Deed::write, outcome, *trouble);
        result.detail = inTurn(result.detail, adviceOn(*trouble));
    }
    return result;
}

Told toldNotRestored(const Trouble& why) {
    const bool stopped = why.kind == Kind::cancelled;
    return {.what = words("Nothing was restored"),
            .why = stopped ? words("stopped") : backupReason(why),
            .detail =
                why.kind == Kind::noRoom
                    ? words("Erase loops on the pedal, or tick \"Erase loops that are not in this backup\".")
                    : adviceOn(why),
            .failure = !stopped};
}

}  // namespace kzq
