#include "operations/told.h"

#include <algorithm>

#include "loops/facts.h"
#include "operations/sentences.h"
#include "words/words.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

const char* participle(Deed deed) {
    return deed == Deed::save ? "saved" : deed == Deed::write ? "written" : "erased";
}

/// Without the folders above it.
std::string nameOf(const std::filesystem::path& folder) {
    return (folder.has_filename() ? folder.filename() : folder).string();
}

/// Reasons that differ from the one in the line.
std::string otherReasons(Deed deed, const Outcome& outcome, const Trouble& first) {
    std::string text;
    for (const auto& loop : outcome.slots) {
        if (loop.trouble && loop.trouble->kind != first.kind) {
            text = inTurn(text, words("%1: %2.", loopName(loop.slot), reasonFor(deed, *loop.trouble)));
        }
    }
    return text;
}

/// The loop that `trouble` is about, among several.
std::string loopOf(const Outcome& outcome, const Trouble& trouble) {
    const auto slots = allSlots();
    const auto about =
        std::ranges::find_if(slots, [&](SlotNumber slot) { return trouble.where == loopName(slot); });
    if (outcome.end && about != slots.end()) {
        return loopNames({*about});
    }
    const auto* const failed = outcome.firstFailure();
    return failed != nullptr ? loopNames({failed->slot}) : words("a loop");
}

/// What has been saved stays so, even if a cancel or a pulled cable came with its last byte.
bool cameWhole(Deed deed, const Outcome& outcome) {
    return outcome.whole() || (deed == Deed::save && outcome.done() != 0 && outcome.done() == outcome.wanted);
}

/// Whether the pedal took it, and nothing is known against it: it could not be asked, or not be read back.
bool isUnchecked(const SlotOutcome& loop) {
    return loop.did == SlotOutcome::Did::sent &&
           (!loop.trouble || (loop.trouble->kind != Kind::shortLoop && loop.trouble->kind != Kind::differs));
}

/// Whether the pedal was not asked any more what it holds of the loops it took.
bool onlySent(const Outcome& outcome) {
    return std::ranges::any_of(outcome.slots, [](const SlotOutcome& loop) {
        return loop.did == SlotOutcome::Did::sent && !loop.trouble;
    });
}

/// Where the loops are that did not come to a good end.
std::string whereaboutsOf(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    std::string sent;
    auto missing = notDone(outcome, asked);
    for (const auto& loop : outcome.slots) {
        if (loop.trouble && loop.did == SlotOutcome::Did::sent && loop.trouble->kind != Kind::shortLoop) {
            std::erase(missing, loop.slot);
            sent = inTurn(sent, slotSentence(participle(deed), loop));
        }
    }
    if (missing.empty()) {
        return sent;
    }
    return inTurn(words(missing.size(),
                        byDeed(deed, "%1 is still only on the pedal.", "%1 was not written.",
                               "%1 is still on the pedal."),
                        byDeed(deed, "%1 are still only on the pedal.", "%1 were not written.",
                               "%1 are still on the pedal."),
                        listOf(missing)),
                  sent);
}

/// The pedal took them.
std::string sentHeadline(const std::vector<SlotNumber>& asked, std::size_t done) {
    if (asked.size() == 1) {
        return words("%1 sent, but not checked", loopName(asked.front()));
    }
    return done == asked.size()
               ? words(done, "%n loop sent, but not checked", "%n loops sent, but not checked")
               : words(asked.size(), "%1 of %n loop sent, but not checked",
                       "%1 of %n loops sent, but not checked", done);
}

std::string headline(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    if (cameWhole(deed, outcome)) {
        return asked.size() == 1
                   ? words(byDeed(deed, "%1 saved", "%1 written", "%1 erased"), loopName(asked.front()))
                   : words(asked.size(), byDeed(deed, "%n loop saved", "%n loop written", "%n loop erased"),
                           byDeed(deed, "%n loops saved", "%n loops written", "%n loops erased"));
    }
    const bool changed = outcome.end && outcome.end->kind == Kind::changed && !outcome.begun;
    if (outcome.doubt && outcome.doubt->did == SlotOutcome::Did::erased) {
        return asked.size() == 1 ? words("%1 may have been erased", loopName(asked.front()))
                                 : words("Some of the loops may have been erased");
    }
    const auto sent = static_cast<std::size_t>(std::ranges::count_if(outcome.slots, isUnchecked));
    if (onlySent(outcome) || (outcome.done() == 0 && sent != 0)) {
        return sentHeadline(asked, std::max(outcome.done(), sent));
    }
    if (asked.size() == 1 && !changed) {
        return words(byDeed(deed, "%1 was not saved", "%1 was not written", "%1 was not erased"),
                     loopName(asked.front()));
    }
    return outcome.done() == 0
               ? nothingDone(deed)
               : words(
                     asked.size(),
                     byDeed(deed, "%1 of %n loop saved", "%1 of %n loop written", "%1 of %n loop erased"),
                     byDeed(deed, "%1 of %n loops saved", "%1 of %n loops written", "%1 of %n loops erased"),
                     outcome.done());
}

/// "3, 5 and 7"
std::string numbersIn(const std::vector<SlotNumber>& slots) {
    std::string text;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const auto number = std::to_string(slots[i].number());
        text = i == 0 ? number : words(i + 1 == slots.size() ? "%1 and %2" : "%1, %2", text, number);
    }
    return text;
}

}  // namespace

std::string nothingDone(Deed deed) {
    return words(byDeed(deed, "Nothing was saved", "Nothing was written", "Nothing was erased"));
}

const Trouble* mainTrouble(const Outcome& outcome) {
    if (outcome.end) {
        return &*outcome.end;
    }
    const auto* const loop = outcome.firstFailure();
    return loop == nullptr ? nullptr : &*loop->trouble;
}

bool isMissingRule(const Trouble& trouble) {
    return trouble.kind == Kind::roadNotInstalled || trouble.kind == Kind::roadNotInForce ||
           trouble.kind == Kind::roadBlocked;
}

Told toldMissingRule(const Trouble& trouble) {
    return {.what = words("Loops cannot be imported"),
            .why = words(trouble.kind == Kind::roadNotInstalled ? "the system rule is missing"
                         : trouble.kind == Kind::roadNotInForce ? "the system rule is not in force"
                                                                : "the computer did not give access in time"),
            .detail = trouble.remedy.empty() ? "" : words("Run: %1", trouble.remedy),
            .failure = true};
}

std::string loopNames(const std::vector<SlotNumber>& slots) {
    return words(slots.size(), "loop %1", "loops %1", numbersIn(slots));
}

std::string listOf(const std::vector<SlotNumber>& slots) {
    return words(slots.size(), "Loop %1", "Loops %1", numbersIn(slots));
}

std::vector<SlotNumber> notDone(const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    std::vector<SlotNumber> missing;
    std::ranges::copy_if(asked, std::back_inserter(missing), [&outcome](SlotNumber slot) {
        return std::ranges::none_of(
            outcome.slots, [slot](const SlotOutcome& loop) { return loop.slot == slot && !loop.trouble; });
    });
    return missing;
}

Told told(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    if (!outcome.begun && outcome.end && outcome.end->kind == Kind::busy) {
        return {.what = words("The pedal became busy; close and reopen the window to go on"),
                .detail =
                    words(byDeed(deed, "Nothing was saved.", "Nothing was written.", "Nothing was erased.")),
                .failure = true};
    }
    Told result{.what = headline(deed, outcome, asked)};
    if (cameWhole(deed, outcome)) {
        return result;
    }
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = reasonFor(deed, *trouble, asked.size() == 1 ? "" : loopOf(outcome, *trouble));
        result.detail = inTurn(result.detail, otherReasons(deed, outcome, *trouble));
        result.detail = inTurn(result.detail, adviceOn(*trouble));
    } else {  // an erase, which the pedal agreed to only in part
        result.failure = true;
        result.why = words("the pedal refused");
    }
    // an erase has no slots to tell the loops by
    if (asked.size() > 1 && (deed != Deed::erase || !outcome.slots.empty())) {
        result.detail = inTurn(result.detail, whereaboutsOf(deed, outcome, asked));
    }
    if (outcome.doubt && outcome.doubt->did != SlotOutcome::Did::erased) {  // otherwise the line says it
        result.detail = inTurn(result.detail, doubtSentence(*outcome.doubt));
    }
    return result;
}

Told toldImport(const Outcome& outcome, const std::vector<SlotNumber>& asked,
                const std::filesystem::path& folder) {
    if (const auto* const trouble = mainTrouble(outcome);
        trouble != nullptr && outcome.done() == 0 && isMissingRule(*trouble)) {
        return toldMissingRule(*trouble);
    }
    auto result = told(Deed::save, outcome, asked);
    result.names = {folder.string(), nameOf(folder)};
    if (!cameWhole(Deed::save, outcome)) {
        return result;
    }
    result.what = asked.size() == 1
                      ? words("%1 saved in %2", loopName(asked.front()), nameOf(folder))
                      : words(asked.size(), "%n loop saved in %1", "%n loops saved in %1", nameOf(folder));
    std::string files;
    for (const auto& loop : outcome.slots) {
        result.names.push_back(loop.file.filename().string());
        files = files.empty() ? result.names.back() : words("%1, %2", files, result.names.back());
    }
    result.detail = files.empty() ? "" : words("%1.", files);
    return result;
}

Told toldVerify(const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    std::vector<SlotNumber> differing;
    std::vector<SlotNumber> unread;
    const Trouble noAnswer{Kind::noAnswer};
    const Trouble* why = outcome.end ? &*outcome.end : nullptr;
    for (const auto slot : notDone(outcome, asked)) {
        const auto loop = std::ranges::find(outcome.slots, slot, &SlotOutcome::slot);
        const bool read = loop != outcome.slots.end();
        (read && loop->trouble->kind == Kind::differs ? differing : unread).push_back(slot);
        why = why == nullptr && read && loop->trouble->kind != Kind::differs ? &*loop->trouble : why;
    }
    const auto left = unread.empty() ? ""
                                     : words(unread.size(), "%1 was not compared.", "%1 were not compared.",
                                             listOf(unread));
    if (!differing.empty()) {
        return {.what = words(differing.size(), "%1 on the pedal differs from its file",
                              "%1 on the pedal differ from their files", listOf(differing)),
                .detail = left,
                .failure = true};
    }
    if (unread.empty()) {
        return {.what = asked.size() == 1 ? words("%1 verified", loopName(asked.front()))
                                          : words(asked.size(), "%n loop verified", "%n loops verified"),
                .detail = words("What the pedal sent back is the same, sample for sample.")};
    }
    if (why == nullptr) {
        why = &noAnswer;
    }
    if (why->kind == Kind::cancelled) {
        return {.what = words("Verifying was stopped"), .detail = left};
    }
    return {.what = words(unread.size(), "%1 could not be read back", "%1 could not be read back",
                          listOf(unread)),
            .why = reasonFor(Deed::save, *why, unread.size() == 1 ? "" : loopOf(outcome, *why)),
            .failure = true};
}

bool isSalvageable(const Trouble& trouble) {
    return trouble.kind == Kind::endsEarly || trouble.kind == Kind::broken;
}

Told toldUnusable(const std::string& name, const Trouble& trouble) {
    if (isSalvageable(trouble)) {
        return {.what = words("\"%1\" is damaged", name),
                .why = flawWords(trouble),
                .failure = true,
                .names = {name, trouble.where}};
    }
    return {.what = words("\"%1\" cannot be read", name),
            .detail = audioSentence(trouble),
            .failure = true,
            .names = {name, trouble.where}};
}

Told toldRecordingEnd(const Trouble& trouble) {
    return {.what = words("The recording ends here"),
            .why = reasonFor(Deed::save, trouble),
            .detail = recordingEndSentence(trouble),
            .failure = true};
}

Told toldReport(const std::filesystem::path& file, const Result<void>& saved) {
    const auto folder = file.parent_path();
    Told result{.what = words("Report saved in %1", nameOf(folder)),
                .names = {folder.string(), nameOf(folder)}};
    if (!saved) {
        result.what = words("The report was not saved");
        result.why = reasonFor(Deed::save, saved.error());
        result.detail = adviceOn(saved.error());
        result.failure = true;
    }
    return result;
}

}  // namespace kzq
