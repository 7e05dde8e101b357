#include <string>

#include "operations/sentences.h"
#include "operations/told.h"
#include "updates/firmware_version.h"
#include "words/words.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

Told toldUnconfirmed(Kind why) {
    switch (why) {
        case Kind::stillInLoader:
            return {.what = words("The firmware was sent, but the pedal has not restarted yet"),
                    .detail = words("Leave it plugged in: it may still be storing the firmware."),
                    .failure = true};
        case Kind::unknownVersion:
            return {.what = words("The firmware was sent, but the pedal does not report its version"),
                    .detail = words("Unplug it and plug it in again."),
                    .failure = true};
        default:
            return {
                .what = words("Sent, but the pedal has not come back yet"),
                .detail = words("Unplug it and plug it in again. The program goes on looking for it for ten "
                                "minutes."),
                .failure = true};
    }
}

}  // namespace

FlashStep flashStep(FlashPhase phase, std::optional<unsigned> percent) {
    const auto step = [](int number, const std::string& shown, const std::string& said = {}) {
        return FlashStep{number, shown, said.empty() ? shown : said};
    };
    switch (phase) {
        case FlashPhase::asking:
            return {};
        case FlashPhase::restarting:
        case FlashPhase::left:
            return step(1, words("Restarting the pedal"));
        case FlashPhase::cameBack:
            return step(1,
                        words("The pedal came back without taking the image; close and reopen the window"));
        case FlashPhase::sending:
            if (percent) {
                const auto sending = [](unsigned part) { return words("Sending image, %1 %", part); };
                return step(3, sending(*percent),
                            *percent < 25 ? words("Sending image") : sending(*percent / 25 * 25));
            }
            return step(2, words("The pedal is preparing"));
        case FlashPhase::sent:
            break;
    }
    return step(4, words("Waiting for the pedal to come back"));
}

namespace {

std::string whereaboutsAfterAsking(const FlashEnd& end) {
    if (end.fromLoader) {
        return words("It waits in its loader until it gets firmware.");
    }
    const bool unplugged = end.why && end.why->kind == Kind::unplugged;  // its restart may have begun
    return words(unplugged ? "The pedal may have kept its firmware." : "The pedal keeps its firmware.");
}

/// The image is not complete in the pedal.
Told toldIncomplete(const FlashEnd& end, const std::string& reason) {
    const bool inLoader = end.why && end.why->kind != Kind::silent;
    const auto whereabouts = words(
        inLoader ? "It waits in its loader until it gets firmware."
                 : "The pedal may have stayed in its loader. Unplug it, plug it in again and install again.");
    if (end.percent == 0) {
        return {.what = words("The pedal did not take the image"),
                .why = reason,
                .detail = whereabouts,
                .failure = true};
    }
    return {.what = words("The pedal did not take the image"),
            .why = words("%1 % was sent", end.percent),
            .detail = reason.empty() ? whereabouts : inTurn(capital(words("%1.", reason)), whereabouts),
            .failure = true};
}

}  // namespace

Told told(const FlashEnd& end) {
    const auto reason = end.why ? reasonFor(Deed::write, *end.why) : std::string();
    switch (end.how) {
        case FlashEnd::How::confirmed:
            return {.what = words("Firmware %1 runs on the pedal", end.version)};
        case FlashEnd::How::sent:
            return {.what = words("The firmware was sent"),
                    .detail = words("The pedal has not come back yet.")};
        case FlashEnd::How::inLoader:
            return {.what = words("The pedal did not take the image"),
                    .why = words("it came back in its loader"),
                    .detail = words("It waits in its loader until it gets firmware."),
                    .failure = true};
        case FlashEnd::How::unconfirmed:
            return toldUnconfirmed(end.why ? end.why->kind : Kind::noReturn);
        case FlashEnd::How::notSent:
            break;
    }
    if (end.phase == FlashPhase::asking || (end.why && end.why->kind == Kind::loaderRefused)) {
        return {.what = words("No firmware was installed"),
                .why = end.why && end.why->kind == Kind::loaderRefused ? words("the pedal refused") : reason,
                .detail = whereaboutsAfterAsking(end),
                .failure = true};
    }
    if (end.phase == FlashPhase::sending) {
        return toldIncomplete(end, reason);
    }
    return {.what = words("The firmware could not be sent completely"),
            .why = reason,
            .detail = words(
                "The pedal may have stayed in its loader. Unplug it, plug it in again and install again."),
            .failure = true};
}

Told told(const FlashEnd& end, const FlashEnd& sent, const std::string& wanted) {
    const bool taken = wanted.empty()
                           ? !sent.why
                           : !(FirmwareVersionFromString(end.version) < FirmwareVersionFromString(wanted));
    if (end.how != FlashEnd::How::confirmed || taken) {
        return told(end);
    }
    return {.what = words("The pedal did not take the image"),
            .why = words("it is back with firmware %1", end.version),
            .detail = wanted.empty()
                          ? words("It did not confirm the image. Check whether this is its version.")
                          : words("Firmware %1 was sent. Install it again.", wanted),
            .failure = true};
}

Told toldFirmwareList(const std::string& read, const std::string& newest,
                      const std::optional<Trouble>& trouble) {
    const bool unusable = trouble && (trouble->kind == Kind::unverified || trouble->kind == Kind::noCache);
    if (unusable) {
        return {.what = words("Firmware %1 cannot be offered", newest),
                .why = words("its image could not be downloaded, verified and stored"),
                .detail = firmwareListSentence(read, std::nullopt),
                .failure = true};
    }
    if (trouble) {
        const auto why = words(trouble->kind == Kind::noServer ? "the maker's server could not be reached"
                               : trouble->kind == Kind::untrustedServer
                                   ? "the server could not prove that it is the maker's"
                                   : "what the maker's server sent cannot be used");
        return {.what = words("The firmware list could not be read"),
                .why = why,
                .detail = firmwareListSentence(read, trouble),
                .failure = true};
    }
    return {.what = read.empty() ? words("The firmware list has not been read yet")
                                 : words("Firmware list read at %1: %2 is the newest", read, newest)};
}

}  // namespace kzq
