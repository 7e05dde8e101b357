#include "loops/facts.h"
#include "operations/outcome.h"
#include "operations/sentences.h"
#include "operations/told.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

/// The part behind "Loop 4 was not saved: ".
std::string loopReason(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::emptySlot:
        case Kind::noPedal:
        case Kind::noStatus:
        case Kind::outOfMemory:
        case Kind::noAudio:
        case Kind::changedWhileRead:
        case Kind::notErased:
            return reasonFor(Deed::save, trouble) + ".";
        case Kind::tooLarge:
            return reasonFor(Deed::save, trouble) +
                   ", which cannot be. Unplug the pedal, plug it in again and try again.";
        case Kind::roadNotInstalled:
        case Kind::roadNotInForce:
        case Kind::roadBlocked:
            return roadSentence(trouble);
        default:
            return "the pedal stopped partway through.";
    }
}

/// What was found on this computer, if that is known.
std::string findingOr(const Trouble& trouble, const char* sentence) {
    if (trouble.words.empty()) {
        return sentence;
    }
    return trouble.words + (trouble.remedy.empty() ? "" : " Run: " + trouble.remedy);
}

/// What has come up since the user was asked. `nothing`: "nothing was" or "nothing more was".
std::string changeSentence(const Trouble& trouble, const std::string& nothing) {
    const std::string inTheMeantime = " on the pedal in the meantime, ";
    return trouble.kind == Kind::noRoom
               ? "A loop was recorded" + inTheMeantime + "which leaves too little space, so " + nothing +
                     " written or erased. Erase loops, or choose shorter files."
               : trouble.where + " was " + trouble.words + inTheMeantime + "so " + nothing +
                     " written or erased.";
}

std::string doubtSentence(const SlotOutcome& doubt) {
    switch (doubt.did) {
        case Did::erased:
            return " Some of the loops may have been erased.";
        case Did::written:
            return " " + loopName(doubt.slot) + " was sent; what the pedal holds of it was not checked.";
        default:
            return " " + loopName(doubt.slot) + " was being written; the slot may now be empty.";
    }
}

}  // namespace

std::string pedalSentence(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::noPedal:
            return "No pedal is connected. Plug it in and try again, or use --wait.";
        case Kind::unplugged:
            return "The pedal was unplugged.";
        case Kind::noPermission:
            return "You do not have permission to use the pedal.";
        case Kind::kernelDriver:
            return "A kernel driver was holding the pedal and has now released it. Try again.";
        case Kind::cannotOpen:
            return "The pedal is connected but cannot be opened. Unplug it and plug it in again.";
        case Kind::noStage:
        case Kind::unknownStage:
            return "The pedal is connected but does not identify itself. Unplug it and plug it in again.";
        case Kind::inLoader:
            return "The pedal is running only its loader and needs firmware. Run \"kzq7306ctl firmware "
                   "install\".";
        case Kind::noSystemVersion:
            return "The version of the C library reads as 0, so the pedal cannot be used on this system.";
        case Kind::busy:
            return "The pedal is busy. Stop it and try again.";
        case Kind::silent:
            return "The pedal stopped answering. Unplug it and plug it in again.";
        case Kind::tableIncomplete:
            return "The pedal did not report its loops. Unplug it, plug it in again and try again.";
        case Kind::cancelled:
            return "Cancelled.";
        case Kind::declined:
            return "Cancelled. Nothing was changed.";
        case Kind::nobodyToAsk:
            return "Confirmation needed, but standard input is not a terminal. Nothing was changed; use "
                   "--yes "
                   "to proceed.";
        case Kind::tooLarge:
            return trouble.where + ": " + loopReason(trouble);
        case Kind::noFreeSlots:
            return "The pedal has " + trouble.words +
                   ". Erase loops, or choose slots to overwrite with --slot.";
        default:
            return findingOr(trouble,
                             "The pedal is in use by another program. Close that program, then try again.");
    }
}

std::string slotSentence(std::string_view done, const SlotOutcome& outcome) {
    const auto name = loopName(outcome.slot);
    const auto trouble = outcome.trouble.value_or(Trouble{Kind::noAnswer});
    if (outcome.did == Did::failed && !outcome.file.empty()) {
        return notSavedSentence(name, outcome.file, trouble);
    }
    if (trouble.kind == Kind::shortLoop) {
        return name + " was sent, but the pedal does not hold all of it.";
    }
    if (trouble.kind == Kind::differs) {
        return name + " does not match what was written.";
    }
    const bool toPedal = done == "written" && outcome.did == Did::failed;
    const auto start = name + (outcome.did == Did::written ? " was sent but could not be read back: "
                                                           : " was not " + std::string(done) + ": ");
    if (trouble.kind == Kind::refused) {
        return start + (toPedal ? "the pedal refused it." : "the pedal refused to send it.");
    }
    return start + loopReason(trouble) +
           (toPedal && trouble.kind == Kind::transferFailed ? " The slot may now be empty." : "");
}

std::string endSentence(std::string_view done, const Outcome& outcome) {
    if (!outcome.end) {
        return {};
    }
    const auto kind = outcome.end->kind;
    if (kind == Kind::changed || kind == Kind::noRoom) {
        return changeSentence(*outcome.end, outcome.begun ? "nothing more was" : "nothing was");
    }
    auto sentence = kind == Kind::diskFull ? spaceSentence(*outcome.end) : pedalSentence(*outcome.end);
    if (!outcome.begun && done != "saved") {
        sentence += " Nothing was changed.";
    }
    return sentence + (outcome.doubt ? doubtSentence(*outcome.doubt) : "");
}

std::string countSentence(std::string_view done, const Outcome& outcome) {
    if (outcome.done() == 0 && outcome.doubt) {
        return {};
    }
    return (outcome.done() == outcome.wanted ? "" : std::to_string(outcome.done()) + " of ") +
           loopsText(outcome.wanted) + " " + std::string(done) + ".";
}

}  // namespace kzq
