#include "operations/flash.h"
#include "operations/sentences.h"
#include "operations/told.h"

namespace kzq {

namespace {

using How = FlashEnd::How;
using Kind = Trouble::Kind;

/// The image is not complete in the pedal.
std::string incompleteSentence(Kind why) {
    switch (why) {
        case Kind::silent:
            return "The pedal stopped answering, so the firmware is not complete.";
        case Kind::unplugged:
            return "The pedal was unplugged before the firmware was complete.";
        case Kind::refused:
            return "The pedal refused the firmware.";
        default:
            return "The firmware could not be sent completely.";
    }
}

std::string replugAnd(const std::string& again) {
    return "Unplug it, plug it in again and " + again + ".";
}

std::string stuck(const std::string& again) {
    return "The pedal may still be in its loader. " + replugAnd(again);
}

std::string notSentSentence(const FlashEnd& end, const Trouble& why, const std::string& again) {
    if (end.phase == FlashPhase::sending) {
        return incompleteSentence(why.kind) + " " + stuck(again);
    }
    switch (why.kind) {
        case Kind::loaderNotEntered:
            return "The pedal came back without entering its loader, so nothing was installed. " +
                   replugAnd(again);
        case Kind::loaderRefused:
            return "The pedal refused to enter its loader. Nothing was changed.";
        case Kind::noReturn:
            return "The pedal did not come back after restarting. Nothing was installed. " + stuck(again);
        default:
            return pedalSentence(why) + (end.phase == FlashPhase::left ? " Then " + again + "." : "");
    }
}

/// The image is in the pedal, which has not been seen to run it.
Told unconfirmed(Kind why) {
    Told told{.what = "The firmware was sent, but the pedal ", .failure = true};
    switch (why) {
        case Kind::stillInLoader:
            told.what += "has not restarted yet";
            told.detail =
                "Leave it plugged in: it may still be storing the firmware. Check its version once "
                "it has restarted.";
            break;
        case Kind::unknownVersion:
        case Kind::noReturn:
            told.what += why == Kind::noReturn ? "has not come back yet" : "does not report its version";
            told.detail = replugAnd("check its version");
            break;
        default:
            told.what += "was not seen to come back";
            told.detail = "Check its version once it is back.";
    }
    return told;
}

}  // namespace

std::string flashSentence(const FlashEnd& end, const std::string& again) {
    const auto why = end.why.value_or(Trouble{Kind::noAnswer});
    switch (end.how) {
        case How::notSent:
            return notSentSentence(end, why, again);
        case How::sent:
            return "The firmware was sent. Waiting for the pedal to come back.";
        case How::confirmed:
            return "The pedal runs firmware " + end.version + ".";
        case How::inLoader:
            return "The pedal is in its loader, so it did not accept the firmware. " + replugAnd(again);
        case How::unconfirmed:
            break;
    }
    const auto told = unconfirmed(why.kind);
    return told.what + ", so it is not known whether it is installed. " + told.detail;
}

}  // namespace kzq
