#include "operations/told.h"

#include <algorithm>
#include <cctype>

#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

const char* participle(Deed deed) {
    return deed == Deed::save ? "saved" : deed == Deed::write ? "written" : "erased";
}

void append(std::string& text, const std::string& sentence) {
    text += text.empty() || sentence.empty() ? sentence : " " + sentence;
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
            append(text, loopName(loop.slot) + ": " + reasonFor(deed, *loop.trouble) + ".");
        }
    }
    return text;
}

/// The loop that `trouble` is about, among several.
std::string loopOf(const Outcome& outcome, const Trouble& trouble) {
    const auto* const failed = outcome.firstFailure();
    auto name = !trouble.where.empty() && outcome.end ? trouble.where
                : failed != nullptr                   ? loopName(failed->slot)
                                                      : std::string("a loop");
    name.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(name.front())));
    return name;
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
            append(sent, slotSentence(participle(deed), loop));
        }
    }
    if (missing.empty()) {
        return sent;
    }
    const bool one = missing.size() == 1;
    auto text = listOf(missing);
    switch (deed) {
        case Deed::save:
            text += std::string(one ? " is" : " are") + " still only on the pedal.";
            break;
        case Deed::write:
            text += std::string(one ? " was" : " were") + " not written.";
            break;
        case Deed::erase:
            text += std::string(one ? " is" : " are") + " still on the pedal.";
    }
    append(text, sent);
    return text;
}

std::string headline(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    const std::string did(participle(deed));
    if (cameWhole(deed, outcome)) {
        return (asked.size() == 1 ? loopName(asked.front()) : loopsText(asked.size())) + " " + did;
    }
    const bool changed = outcome.end && outcome.end->kind == Kind::changed && !outcome.begun;
    if (outcome.doubt && outcome.doubt->did == SlotOutcome::Did::erased) {
        return asked.size() == 1 ? loopName(asked.front()) + " may have been erased"
                                 : "Some of the loops may have been erased";
    }
    const auto sent = static_cast<std::size_t>(std::ranges::count_if(outcome.slots, isUnchecked));
    if (onlySent(outcome) || (outcome.done() == 0 && sent != 0)) {
        const auto done = std::max(outcome.done(), sent);
        return (asked.size() == 1      ? loopName(asked.front())
                : done == asked.size() ? loopsText(done)
                                       : std::to_string(done) + " of " + loopsText(asked.size())) +
               " sent, but not checked";
    }
    if (asked.size() == 1 && !changed) {
        return loopName(asked.front()) + " was not " + did;
    }
    return outcome.done() == 0
               ? "Nothing was " + did
               : std::to_string(outcome.done()) + " of " + loopsText(asked.size()) + " " + did;
}

}  // namespace

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
    return {.what = "Loops cannot be imported",
            .why = trouble.kind == Kind::roadNotInstalled ? "the system rule is missing"
                   : trouble.kind == Kind::roadNotInForce ? "the system rule is not in force"
                                                          : "the computer did not give access in time",
            .detail = trouble.remedy.empty() ? "" : "Run: " + trouble.remedy,
            .failure = true};
}

std::string loopNames(const std::vector<SlotNumber>& slots) {
    std::string text(slots.size() == 1 ? "loop " : "loops ");
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const char* const joint = i == 0 ? "" : i + 1 == slots.size() ? " and " : ", ";
        text += joint + std::to_string(slots[i].number());
    }
    return text;
}

std::string listOf(const std::vector<SlotNumber>& slots) {
    return "L" + loopNames(slots).substr(1);
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
        return {.what = "The pedal became busy; close and reopen the window to go on",
                .detail = std::string("Nothing was ") + participle(deed) + ".",
                .failure = true};
    }
    Told result{.what = headline(deed, outcome, asked)};
    if (cameWhole(deed, outcome)) {
        return result;
    }
    if (const auto* const trouble = mainTrouble(outcome)) {
        result.failure = trouble->kind != Kind::cancelled;
        result.why = reasonFor(deed, *trouble, asked.size() == 1 ? "it" : loopOf(outcome, *trouble));
        append(result.detail, otherReasons(deed, outcome, *trouble));
        append(result.detail, adviceOn(*trouble));
    } else {  // an erase, which the pedal agreed to only in part
        result.failure = true;
        result.why = "the pedal refused";
    }
    // an erase has no slots to tell the loops by
    if (asked.size() > 1 && (deed != Deed::erase || !outcome.slots.empty())) {
        append(result.detail, whereaboutsOf(deed, outcome, asked));
    }
    if (outcome.doubt && outcome.doubt->did != SlotOutcome::Did::erased) {  // otherwise the line says it
        append(result.detail, doubtSentence(*outcome.doubt));
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
    result.what += " in " + nameOf(folder);
    for (const auto& loop : outcome.slots) {
        result.names.push_back(loop.file.filename().string());
        result.detail += (result.detail.empty() ? "" : ", ") + result.names.back();
    }
    result.detail += result.detail.empty() ? "" : ".";
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
    const auto left = unread.empty() ? "" : listOf(unread) + (unread.size() == 1 ? " was" : " were");
    if (!differing.empty()) {
        return {.what = listOf(differing) + " on the pedal " +
                        (differing.size() == 1 ? "differs from its file" : "differ from their files"),
                .detail = unread.empty() ? "" : left + " not compared.",
                .failure = true};
    }
    if (unread.empty()) {
        return {.what = (asked.size() == 1 ? loopName(asked.front()) : loopsText(asked.size())) + " verified",
                .detail = "What the pedal sent back is the same, sample for sample."};
    }
    if (why == nullptr) {
        why = &noAnswer;
    }
    if (why->kind == Kind::cancelled) {
        return {.what = "Verifying was stopped", .detail = left + " not compared."};
    }
    return {.what = listOf(unread) + " could not be read back",
            .why = reasonFor(Deed::save, *why, unread.size() == 1 ? "it" : loopOf(outcome, *why)),
            .failure = true};
}

bool isSalvageable(const Trouble& trouble) {
    return trouble.kind == Kind::endsEarly || trouble.kind == Kind::broken;
}

Told toldUnusable(const std::string& name, const Trouble& trouble) {
    if (isSalvageable(trouble)) {
        return {.what = "\"" + name + "\" is damaged",
                .why = flawWords(trouble),
                .failure = true,
                .names = {name, trouble.where}};
    }
    return {.what = "\"" + name + "\" cannot be read",
            .detail = audioSentence(trouble),
            .failure = true,
            .names = {name, trouble.where}};
}

Told toldRecordingEnd(const Trouble& trouble) {
    return {.what = "The recording ends here",
            .why = reasonFor(Deed::save, trouble),
            .detail = recordingEndSentence(trouble),
            .failure = true};
}

Told toldReport(const std::filesystem::path& file, const Result<void>& saved) {
    const auto folder = file.parent_path();
    Told result{.what = "Report saved in " + nameOf(folder), .names = {folder.string(), nameOf(folder)}};
    if (!saved) {
        result.what = "The report was not saved";
        result.why = reasonFor(Deed::save, saved.error());
        result.detail = adviceOn(saved.error());
        result.failure = true;
    }
    return result;
}

}  // namespace kzq
