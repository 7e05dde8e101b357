#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>

#include "operations/sentences.h"
#include "operations/told.h"
#include "words/words.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

/// A reason in all its forms; null where there is none.
struct Wording {
    Kind kind;
    const char* reason;              ///< behind a colon, without a full stop
    const char* named = nullptr;     ///< the same with a loop's name; null: it does not speak of the loop
    const char* sentence = nullptr;  ///< complete, of the tool; null: the reason with a capital
    const char* advice = nullptr;    ///< what the window adds
};

constexpr auto reasonUnplugged = english("the pedal was unplugged");
constexpr auto reasonSilent = english("the pedal stopped answering");
constexpr auto reasonNoTable = english("the pedal did not report its loops");
constexpr auto sentenceUnidentified =
    "The pedal is connected but does not identify itself. Unplug it and plug it in again.";
constexpr auto adviceReplug = english("Unplug the pedal, plug it in again and start again.");
constexpr auto reasonPartway = english("the pedal stopped partway through");
constexpr auto reasonRoad = english("this computer did not pass the request on to the pedal");

constexpr auto wordings = std::to_array<Wording>({
    {.kind = Kind::noPedal,
     .reason = reasonUnplugged,
     .sentence = "No pedal is connected. Plug it in and try again, or use --wait."},
    {.kind = Kind::unplugged, .reason = reasonUnplugged},
    {.kind = Kind::noPermission,
     .reason = reasonPartway,
     .sentence = "You do not have permission to use the pedal."},
    {.kind = Kind::kernelDriver,
     .reason = reasonPartway,
     .sentence = "A kernel driver was holding the pedal and has now released it. Try again."},
    {.kind = Kind::cannotOpen,
     .reason = reasonPartway,
     .sentence = "The pedal is connected but cannot be opened. Unplug it and plug it in again."},
    {.kind = Kind::noStage, .reason = reasonPartway, .sentence = sentenceUnidentified},
    {.kind = Kind::unknownStage, .reason = reasonPartway, .sentence = sentenceUnidentified},
    {.kind = Kind::inLoader,
     .reason = english("the pedal is waiting for firmware"),
     .sentence =
         "The pedal is running only its loader and needs firmware. Run \"kzq7306ctl firmware install\"."},
    {.kind = Kind::noSystemVersion,
     .reason = reasonPartway,
     .sentence = "The version of the C library reads as 0, so the pedal cannot be used on this system."},
    {.kind = Kind::roadNotInstalled, .reason = reasonRoad},
    {.kind = Kind::roadNotInForce, .reason = reasonRoad},
    {.kind = Kind::roadBlocked, .reason = reasonRoad},
    {.kind = Kind::heldByAnother, .reason = english("another program is using the pedal")},
    {.kind = Kind::heldByDriver, .reason = english("a kernel driver is holding the pedal")},
    {.kind = Kind::busy,
     .reason = english("the pedal is busy"),
     .sentence = "The pedal is busy. Stop it and try again."},
    {.kind = Kind::noAnswer, .reason = reasonSilent},
    {.kind = Kind::silent,
     .reason = reasonSilent,
     .sentence = "The pedal stopped answering. Unplug it and plug it in again.",
     .advice = adviceReplug},
    {.kind = Kind::noStatus, .reason = reasonNoTable, .advice = adviceReplug},
    {.kind = Kind::tableIncomplete,
     .reason = reasonNoTable,
     .sentence = "The pedal did not report its loops. Unplug it, plug it in again and try again.",
     .advice = adviceReplug},
    {.kind = Kind::changed, .reason = nullptr, .advice = english("Check the rows and start again.")},
    {.kind = Kind::cancelled, .reason = english("cancelled")},
    {.kind = Kind::emptySlot, .reason = english("the slot is empty")},
    {.kind = Kind::outOfMemory, .reason = english("there is not enough memory to hold it")},
    {.kind = Kind::tooLarge,
     .reason = english("the pedal reports it as longer than 24 minutes"),
     .named = english("the pedal reports %1 as longer than 24 minutes"),
     .advice = english("Unplug the pedal and plug it in again.")},
    {.kind = Kind::noAudio, .reason = english("its file could not be read")},
    {.kind = Kind::noRoom,
     .reason = english("the pedal has too little room"),
     .advice = english("Erase loops, or choose shorter files.")},
    {.kind = Kind::notErased,
     .reason = english("it is still on the pedal"),
     .named = english("%1 is still on the pedal")},
    {.kind = Kind::shortLoop,
     .reason = english("the pedal does not hold all of it"),
     .named = english("the pedal does not hold all of %1")},
    {.kind = Kind::changedWhileRead,
     .reason = english("it changed while it was being read"),
     .named = english("%1 changed while it was being read")},
    {.kind = Kind::diskFull, .reason = english("too little space on the disk")},
    {.kind = Kind::declined, .reason = nullptr, .sentence = "Cancelled. Nothing was changed."},
    {.kind = Kind::nobodyToAsk,
     .reason = nullptr,
     .sentence = "Confirmation needed, but standard input is not a terminal. Nothing was changed; use --yes "
                 "to proceed."},
});

Wording wordingOf(Kind kind) {
    const auto* const found = std::ranges::find(wordings, kind, &Wording::kind);
    return found == wordings.end() ? Wording{.kind = kind, .reason = nullptr} : *found;
}

bool isHeld(const Trouble& trouble) {
    return trouble.kind == Kind::heldByAnother || trouble.kind == Kind::heldByDriver;
}

/// In the middle of a sentence; null if there is none for it.
const char* fileReason(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return english("no space left on the disk");
        case ENOENT:
            return english("the folder is not there any more");
        case EROFS:
        case EACCES:
        case EPERM:
            return english("the folder cannot be written to");
        default:
            return nullptr;
    }
}

std::string changeReason(const Trouble& trouble) {
    const bool recorded = trouble.words == "recorded";
    const bool erased = trouble.words == "erased";
    if (trouble.words == "played") {
        return words("the pedal was in use while its loops were copied");
    }
    return words(trouble.words.empty() ? "%1 changed meanwhile"
                 : recorded            ? "%1 was recorded on the pedal meanwhile"
                 : erased              ? "%1 was erased on the pedal meanwhile"
                                       : "%1 was changed on the pedal meanwhile",
                 trouble.where);
}

std::string refusedReason(Deed deed, const std::string& loop) {
    if (deed == Deed::save) {
        return loop.empty() ? words("the pedal refused to send it")
                            : words("the pedal refused to send %1", loop);
    }
    return loop.empty() ? words("the pedal refused it") : words("the pedal refused %1", loop);
}

}  // namespace

std::string reasonFor(Deed deed, const Trouble& trouble, const std::string& loop) {
    switch (trouble.kind) {
        case Kind::refused:
            return refusedReason(deed, loop);
        case Kind::changed:
            return changeReason(trouble);
        case Kind::damaged:
            return words("%1 is missing or has been changed",
                         std::filesystem::path(trouble.where).filename().string());
        case Kind::file: {
            const auto* const reason = fileReason(trouble.error);
            return reason == nullptr ? words("the file cannot be written") : words(reason);
        }
        default:
            break;
    }
    const auto wording = wordingOf(trouble.kind);
    if (wording.named != nullptr && !loop.empty()) {
        return words(wording.named, loop);
    }
    return words(wording.reason == nullptr ? reasonPartway : wording.reason);
}

std::string reasonSentence(Deed deed, const Trouble& trouble) {
    if (isMissingRule(trouble)) {
        return roadSentence(trouble);
    }
    if (trouble.kind == Kind::tooLarge) {
        return words(
            "the pedal reports it as longer than 24 minutes, which is impossible. Unplug the pedal, plug "
            "it in again and try again.");
    }
    const auto reason = words("%1.", reasonFor(deed, trouble));
    return isHeld(trouble) ? inTurn(reason, pedalSentence(trouble)) : reason;
}

std::string adviceOn(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::file:  // the reason has said the rest, unless it is none
            return fileReason(trouble.error) == nullptr ? fileSentence(trouble) : fileRemedy(trouble.error);
        case Kind::diskFull:
            return spaceSentence(trouble);
        case Kind::heldByAnother:
        case Kind::heldByDriver:
            return pedalSentence(trouble);
        default:
            break;
    }
    const auto* const advice = wordingOf(trouble.kind).advice;
    return advice == nullptr ? "" : words(advice);
}

std::string pedalSentence(const Trouble& trouble) {
    const auto wording = wordingOf(trouble.kind);
    if (wording.sentence != nullptr) {
        return wording.sentence;
    }
    if (trouble.kind == Kind::tooLarge) {
        return trouble.where + ": " + reasonSentence(Deed::save, trouble);
    }
    if (trouble.kind == Kind::noFreeSlots) {
        return "The pedal has " + trouble.words + ". Erase loops, or choose slots to overwrite with --slot.";
    }
    if (!trouble.words.empty()) {  // what was found on this computer
        return inTurn(trouble.words, trouble.remedy.empty() ? "" : words("Run: %1", trouble.remedy));
    }
    if (wording.reason == nullptr || isHeld(trouble)) {
        return words("The pedal is in use by another program. Close that program, then try again.");
    }
    return capital(words("%1.", reasonFor(Deed::save, trouble)));
}

}  // namespace kzq
