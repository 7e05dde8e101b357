#include "operations/told.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <system_error>

#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

const char* participle(Deed deed) {
    return deed == Deed::save ? "saved" : deed == Deed::write ? "written" : "erased";
}

std::string loops(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " loop" : " loops");
}

/// In the middle of a sentence.
std::string fileReason(const Trouble& trouble) {
    switch (trouble.error) {
        case ENOSPC:
        case EDQUOT:
            return "no space left on the disk";
        case ENOENT:
            return "the folder is not there any more";
        case EROFS:
        case EACCES:
        case EPERM:
            return "the folder cannot be written to";
        default:
            return "the file cannot be written";
    }
}

std::string changeReason(const Trouble& trouble) {
    return trouble.words.empty() ? trouble.where + " changed meanwhile"
                                 : trouble.where + " was " + trouble.words + " on the pedal meanwhile";
}

/// What is known beyond the reason: a number, the system's own words, what to do.
std::string detailOf(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::file:
            return fileSentence(trouble);
        case Kind::diskFull:
            return spaceSentence(trouble);
        case Kind::tooLarge:
            return "Unplug the pedal and plug it in again.";
        case Kind::changed:
            return "Look at the rows and start again.";
        case Kind::noRoom:
            return "Erase loops, or choose shorter files.";
        case Kind::tableIncomplete:
        case Kind::silent:
        case Kind::noStatus:
            return "Unplug the pedal, plug it in again and start again.";
        default:
            return {};
    }
}

void append(std::string& text, const std::string& sentence) {
    text += text.empty() || sentence.empty() ? sentence : " " + sentence;
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

std::string whereaboutsOf(Deed deed, const std::vector<SlotNumber>& missing) {
    const bool one = missing.size() == 1;
    switch (deed) {
        case Deed::save:
            return listOf(missing) + (one ? " is" : " are") + " still only on the pedal.";
        case Deed::write:
            return listOf(missing) + (one ? " was" : " were") + " not written.";
        case Deed::erase:
            return listOf(missing) + (one ? " is" : " are") + " still on the pedal.";
    }
    return {};
}

std::string doubtOf(const SlotOutcome& doubt) {
    const auto name = loopName(doubt.slot);
    switch (doubt.did) {
        case SlotOutcome::Did::erased:
            return {};  // the sentence says it
        case SlotOutcome::Did::written:
            return name + " was sent; what the pedal holds of it was not checked.";
        default:
            return name + " was being written; its slot may be empty now.";
    }
}

/// What has been saved or written stays so, even if a cancel or a pulled cable came with its last byte.
bool cameWhole(Deed deed, const Outcome& outcome) {
    return outcome.whole() ||
           (deed != Deed::erase && outcome.done() != 0 && outcome.done() == outcome.wanted);
}

std::string headline(Deed deed, const Outcome& outcome, const std::vector<SlotNumber>& asked) {
    const std::string did(participle(deed));
    if (cameWhole(deed, outcome)) {
        return (asked.size() == 1 ? loopName(asked.front()) : loops(asked.size())) + " " + did;
    }
    const bool changed = outcome.end && outcome.end->kind == Kind::changed && !outcome.begun;
    if (outcome.doubt && outcome.doubt->did == SlotOutcome::Did::erased) {
        return asked.size() == 1 ? loopName(asked.front()) + " may have been erased"
                                 : "Some of the loops may have been erased";
    }
    if (asked.size() == 1 && !changed) {
        return loopName(asked.front()) + " was not " + did;
    }
    return outcome.done() == 0 ? "Nothing was " + did
                               : std::to_string(outcome.done()) + " of " + loops(asked.size()) + " " + did;
}

}  // namespace

std::string reasonFor(Deed deed, const Trouble& trouble, const std::string& it) {
    switch (trouble.kind) {
        case Kind::refused:
            return "the pedal refused " + ((deed == Deed::save ? "to send " : "") + it);
        case Kind::emptySlot:
            return "the slot is empty";
        case Kind::noPedal:
        case Kind::unplugged:
            return "the pedal was unplugged";
        case Kind::busy:
            return "the pedal is busy";
        case Kind::silent:
        case Kind::noAnswer:
            return "the pedal stopped answering";
        case Kind::noStatus:
        case Kind::tableIncomplete:
            return "the pedal did not report its loops";
        case Kind::changed:
            return changeReason(trouble);
        case Kind::changedWhileRead:
            return it + " changed while it was being read";
        case Kind::tooLarge:
            return "the pedal gives " + it + " a length beyond its 24 minutes";
        case Kind::noRoom:
            return "the pedal has too little room";
        case Kind::outOfMemory:
            return "there is not enough memory to hold it";
        case Kind::noAudio:
            return "its file could not be read";
        case Kind::notErased:
            return it + " is still on the pedal";
        case Kind::diskFull:
            return "too little space on the disk";
        case Kind::file:
            return fileReason(trouble);
        case Kind::roadNotInstalled:
        case Kind::roadNotInForce:
        case Kind::roadBlocked:
            return "this computer did not pass the request on to the pedal";
        case Kind::cancelled:
            return "cancelled";
        default:
            return "the pedal stopped partway through";
    }
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
    return {.what = "Loops cannot be imported",
            .why = trouble.kind == Kind::roadNotInstalled ? "the system rule is missing"
                   : trouble.kind == Kind::roadNotInForce ? "the system rule is not in force"
                                                          : "the computer did not give access in time",
            .detail = trouble.remedy.empty() ? "" : "Run: " + trouble.remedy,
            .failure = true};
}

std::string listOf(const std::vector<SlotNumber>& slots) {
    std::string text(slots.size() == 1 ? "Loop " : "Loops ");
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const char* const joint = i == 0 ? "" : i + 1 == slots.size() ? " and " : ", ";
        text += joint + std::to_string(slots[i].number());
    }
    return text;
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
        append(result.detail, detailOf(*trouble));
    } else {  // an erase, which the pedal agreed to only in part
        result.failure = true;
        result.why = "the pedal refused";
    }
    // an erase has no slots to tell the loops by
    if (const auto missing = notDone(outcome, asked);
        !missing.empty() && asked.size() > 1 && (deed != Deed::erase || !outcome.slots.empty())) {
        append(result.detail, whereaboutsOf(deed, missing));
    }
    if (outcome.doubt) {
        append(result.detail, doubtOf(*outcome.doubt));
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
    if (!cameWhole(Deed::save, outcome)) {
        return result;
    }
    result.what += " in " + (folder.has_filename() ? folder.filename() : folder).string();
    for (const auto& loop : outcome.slots) {
        result.detail += (result.detail.empty() ? "" : ", ") + loop.file.filename().string();
    }
    result.detail += result.detail.empty() ? "" : ".";
    return result;
}

namespace {

Told toldUnconfirmed(Kind why) {
    switch (why) {
        case Kind::stillInLoader:
            return {.what = "The firmware was sent, but the pedal has not restarted yet",
                    .detail = "Leave it plugged in: it may still be storing the firmware.",
                    .failure = true};
        case Kind::unknownVersion:
            return {.what = "The firmware was sent, but the pedal does not report its version",
                    .detail = "Unplug it and plug it in again.",
                    .failure = true};
        default:
            return {.what = "The firmware was sent, but the pedal has not come back yet",
                    .detail = "Unplug it and plug it in again.",
                    .failure = true};
    }
}

}  // namespace

Told told(const FlashEnd& end) {
    const auto reason = end.why ? reasonFor(Deed::write, *end.why) : std::string();
    switch (end.how) {
        case FlashEnd::How::confirmed:
            return {.what = "Firmware " + end.version + " runs on the pedal"};
        case FlashEnd::How::sent:
            return {.what = "The firmware was sent", .detail = "The pedal has not come back yet."};
        case FlashEnd::How::inLoader:
            return {.what = "The pedal is still waiting for firmware",
                    .detail = "Unplug it, plug it in again and install again.",
                    .failure = true};
        case FlashEnd::How::unconfirmed:
            return toldUnconfirmed(end.why ? end.why->kind : Kind::noReturn);
        case FlashEnd::How::notSent:
            break;
    }
    if (end.phase == FlashPhase::asking || (end.why && end.why->kind == Kind::loaderRefused)) {
        return {.what = "No firmware was installed",
                .why = end.why && end.why->kind == Kind::loaderRefused ? "the pedal refused" : reason,
                .detail = "The pedal keeps its firmware.",
                .failure = true};
    }
    return {
        .what = "The firmware could not be sent completely",
        .why = reason,
        .detail = "The pedal may have stayed in its loader. Unplug it, plug it in again and install again.",
        .failure = true};
}

Told toldUnusable(const std::string& name, const Trouble& trouble) {
    return {.what = "\"" + name + "\" cannot be read", .detail = audioSentence(trouble), .failure = true};
}

}  // namespace kzq
