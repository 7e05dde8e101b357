#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <string_view>

#include "operations/sentences.h"
#include "operations/told.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

/// A reason in all its forms.
struct Wording {
    Kind kind;
    std::string_view reason;         ///< behind a colon, without a full stop; "%" is the loop
    std::string_view sentence = {};  ///< complete, of the tool; empty: the reason with a capital
    std::string_view advice = {};    ///< what the window adds
};

constexpr std::string_view reasonUnplugged = "the pedal was unplugged";
constexpr std::string_view reasonSilent = "the pedal stopped answering";
constexpr std::string_view reasonNoTable = "the pedal did not report its loops";
constexpr std::string_view sentenceUnidentified =
    "The pedal is connected but does not identify itself. Unplug it and plug it in again.";
constexpr std::string_view adviceReplug = "Unplug the pedal, plug it in again and start again.";
constexpr std::string_view reasonPartway = "the pedal stopped partway through";
constexpr std::string_view reasonUnwritable = "the file cannot be written";
constexpr std::string_view reasonRoad = "this computer did not pass the request on to the pedal";

constexpr auto wordings = std::to_array<Wording>({
    {Kind::noPedal, reasonUnplugged, "No pedal is connected. Plug it in and try again, or use --wait."},
    {Kind::unplugged, reasonUnplugged},
    {Kind::noPermission, reasonPartway, "You do not have permission to use the pedal."},
    {Kind::kernelDriver, reasonPartway,
     "A kernel driver was holding the pedal and has now released it. Try again."},
    {Kind::cannotOpen, reasonPartway,
     "The pedal is connected but cannot be opened. Unplug it and plug it in again."},
    {Kind::noStage, reasonPartway, sentenceUnidentified},
    {Kind::unknownStage, reasonPartway, sentenceUnidentified},
    {Kind::inLoader, reasonPartway,
     "The pedal is running only its loader and needs firmware. Run \"kzq7306ctl firmware install\"."},
    {Kind::noSystemVersion, reasonPartway,
     "The version of the C library reads as 0, so the pedal cannot be used on this system."},
    {Kind::roadNotInstalled, reasonRoad},
    {Kind::roadNotInForce, reasonRoad},
    {Kind::roadBlocked, reasonRoad},
    {Kind::heldByAnother, "another program is using the pedal"},
    {Kind::heldByDriver, "a kernel driver is holding the pedal"},
    {Kind::busy, "the pedal is busy", "The pedal is busy. Stop it and try again."},
    {Kind::noAnswer, reasonSilent},
    {Kind::silent, reasonSilent, "The pedal stopped answering. Unplug it and plug it in again.",
     adviceReplug},
    {Kind::noStatus, reasonNoTable, {}, adviceReplug},
    {Kind::tableIncomplete, reasonNoTable,
     "The pedal did not report its loops. Unplug it, plug it in again and try again.", adviceReplug},
    {Kind::changed, {}, {}, "Look at the rows and start again."},
    {Kind::cancelled, "cancelled"},
    {Kind::emptySlot, "the slot is empty"},
    {Kind::outOfMemory, "there is not enough memory to hold it"},
    {Kind::tooLarge,
     "the pedal gives % a length beyond its 24 minutes",
     {},
     "Unplug the pedal and plug it in again."},
    {Kind::noAudio, "its file could not be read"},
    {Kind::noRoom, "the pedal has too little room", {}, "Erase loops, or choose shorter files."},
    {Kind::notErased, "% is still on the pedal"},
    {Kind::shortLoop, "the pedal does not hold all of %"},
    {Kind::changedWhileRead, "% changed while it was being read"},
    {Kind::diskFull, "too little space on the disk"},
    {Kind::declined, {}, "Cancelled. Nothing was changed."},
    {Kind::nobodyToAsk,
     {},
     "Confirmation needed, but standard input is not a terminal. Nothing was changed; use --yes to proceed."},
});

Wording wordingOf(Kind kind) {
    const auto* const found = std::ranges::find(wordings, kind, &Wording::kind);
    return found == wordings.end() ? Wording{kind, {}} : *found;
}

bool isHeld(const Trouble& trouble) {
    return trouble.kind == Kind::heldByAnother || trouble.kind == Kind::heldByDriver;
}

/// In the middle of a sentence.
std::string fileReason(int error) {
    switch (error) {
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
            return std::string(reasonUnwritable);
    }
}

std::string changeReason(const Trouble& trouble) {
    return trouble.words.empty() ? trouble.where + " changed meanwhile"
                                 : trouble.where + " was " + trouble.words + " on the pedal meanwhile";
}

}  // namespace

std::string reasonFor(Deed deed, const Trouble& trouble, const std::string& it) {
    switch (trouble.kind) {
        case Kind::refused:
            return "the pedal refused " + ((deed == Deed::save ? "to send " : "") + it);
        case Kind::changed:
            return changeReason(trouble);
        case Kind::file:
            return fileReason(trouble.error);
        default:
            break;
    }
    const auto wording = wordingOf(trouble.kind);
    std::string reason(wording.reason.empty() ? reasonPartway : wording.reason);
    if (const auto at = reason.find('%'); at != std::string::npos) {
        reason.replace(at, 1, it);
    }
    return reason;
}

std::string reasonSentence(Deed deed, const Trouble& trouble) {
    if (isMissingRule(trouble)) {
        return roadSentence(trouble);
    }
    if (isHeld(trouble)) {
        return reasonFor(deed, trouble) + ". " + pedalSentence(trouble);
    }
    return reasonFor(deed, trouble) +
           (trouble.kind == Kind::tooLarge
                ? ", which cannot be. Unplug the pedal, plug it in again and try again."
                : ".");
}

std::string adviceOn(const Trouble& trouble) {
    switch (trouble.kind) {
        case Kind::file:  // the reason has said the rest, unless it is none
            return fileReason(trouble.error) == reasonUnwritable ? fileSentence(trouble)
                                                                 : fileRemedy(trouble.error);
        case Kind::diskFull:
            return spaceSentence(trouble);
        case Kind::heldByAnother:
        case Kind::heldByDriver:
            return pedalSentence(trouble);
        default:
            return std::string(wordingOf(trouble.kind).advice);
    }
}

std::string pedalSentence(const Trouble& trouble) {
    const auto wording = wordingOf(trouble.kind);
    if (!wording.sentence.empty()) {
        return std::string(wording.sentence);
    }
    if (trouble.kind == Kind::tooLarge) {
        return trouble.where + ": " + reasonSentence(Deed::save, trouble);
    }
    if (trouble.kind == Kind::noFreeSlots) {
        return "The pedal has " + trouble.words + ". Erase loops, or choose slots to overwrite with --slot.";
    }
    if (!trouble.words.empty()) {  // what was found on this computer
        return trouble.words + (trouble.remedy.empty() ? "" : " Run: " + trouble.remedy);
    }
    if (wording.reason.empty() || isHeld(trouble)) {
        return "The pedal is in use by another program. Close that program, then try again.";
    }
    auto sentence = reasonFor(Deed::save, trouble) + ".";
    sentence.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(sentence.front())));
    return sentence;
}

}  // namespace kzq
