#include "operations/flash.h"
#include "operations/sentences.h"

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

std::string notSentSentence(const FlashEnd& end, const Trouble& why, const std::string& again) {
    const std::string whatNext =
        " The pedal may still be in its loader. Unplug it, plug it in again and " + again + ".";
    if (end.phase == FlashPhase::sending) {
        return incompleteSentence(why.kind) + whatNext;
    }
    switch (why.kind) {
        case Kind::loaderNotEntered:
            return "The pedal came back without entering its loader, so nothing was installed. Unplug it, "
                   "plug "
                   "it in again and " +
                   again + ".";
        case Kind::loaderRefused:
            return "The pedal refused to enter its loader. Nothing was changed.";
        case Kind::noReturn:
            return "The pedal did not come back after restarting. Nothing was installed." + whatNext;
        default:
            return pedalSentence(why) + (end.phase == FlashPhase::left ? " Then " + again + "." : "");
    }
}

std::string unconfirmedSentence(Kind why) {
    switch (why) {
        case Kind::noReturn:
            return "The firmware was sent, but the pedal has not come back, so it is not known whether it is "
                   "installed. Unplug the pedal, plug it in again and check its version.";
        case Kind::stillInLoader:
            return "The firmware was sent, but the pedal has not restarted yet, so it is not known whether "
                   "it is "
                   "installed. Leave it plugged in, and check its version once it has restarted.";
        case Kind::unknownVersion:
            return "The firmware was sent and the pedal is back, but it does not report its version. Unplug "
                   "it, plug it in again and check its version.";
        default:
            return "The firmware was sent, but it is not known whether it is installed. Check the version "
                   "once the pedal is back.";
    }
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
            return "The pedal is in its loader, so it did not accept the firmware. Unplug it, plug it in "
                   "again and " +
                   again + ".";
        case How::unconfirmed:
            break;
    }
    return unconfirmedSentence(why.kind);
}

}  // namespace kzq
