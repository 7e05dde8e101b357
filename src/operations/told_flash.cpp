#include <cctype>
#include <string>

#include "operations/sentences.h"
#include "operations/told.h"
#include "updates/firmware_version.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

/// A reason as a sentence before another.
std::string sentenceOf(std::string reason) {
    if (!reason.empty()) {
        reason.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(reason.front())));
        reason += ". ";
    }
    return reason;
}

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
            return {.what = "Sent, but the pedal has not come back yet",
                    .detail =
                        "Unplug it and plug it in again. The program goes on looking for it for ten minutes.",
                    .failure = true};
    }
}

}  // namespace

FlashStep flashStep(FlashPhase phase, std::optional<unsigned> percent) {
    const auto step = [](int number, const std::string& words, const std::string& said = {}) {
        return FlashStep{number, words, said.empty() ? words : said};
    };
    switch (phase) {
        case FlashPhase::asking:
            return {};
        case FlashPhase::restarting:
        case FlashPhase::left:
            return step(1, "Restarting the pedal");
        case FlashPhase::cameBack:
            return step(1, "The pedal came back without taking the image; close and reopen the window");
        case FlashPhase::sending:
            if (percent) {
                const auto words = [](unsigned part) {
                    return "Sending image, " + std::to_string(part) + " %";
                };
                return step(3, words(*percent), *percent < 25 ? "Sending image" : words(*percent / 25 * 25));
            }
            return step(2, "The pedal is preparing");
        case FlashPhase::sent:
            break;
    }
    return step(4, "Waiting for the pedal to come back");
}

namespace {

std::string whereaboutsAfterAsking(const FlashEnd& end) {
    if (end.fromLoader) {
        return "It waits in its loader until it gets firmware.";
    }
    const bool unplugged = end.why && end.why->kind == Kind::unplugged;  // its restart may have begun
    return unplugged ? "The pedal may have kept its firmware." : "The pedal keeps its firmware.";
}

/// The image is not complete in the pedal.
Told toldIncomplete(const FlashEnd& end, const std::string& reason) {
    const bool inLoader = end.why && end.why->kind != Kind::silent;
    const std::string whereabouts =
        inLoader ? "It waits in its loader until it gets firmware."
                 : "The pedal may have stayed in its loader. Unplug it, plug it in again and install again.";
    if (end.percent == 0) {
        return {.what = "The pedal did not take the image",
                .why = reason,
                .detail = whereabouts,
                .failure = true};
    }
    return {.what = "The pedal did not take the image",
            .why = std::to_string(end.percent) + " % was sent",
            .detail = sentenceOf(reason) + whereabouts,
            .failure = true};
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
            return {.what = "The pedal did not take the image",
                    .why = "it came back in its loader",
                    .detail = "It waits in its loader until it gets firmware.",
                    .failure = true};
        case FlashEnd::How::unconfirmed:
            return toldUnconfirmed(end.why ? end.why->kind : Kind::noReturn);
        case FlashEnd::How::notSent:
            break;
    }
    if (end.phase == FlashPhase::asking || (end.why && end.why->kind == Kind::loaderRefused)) {
        return {.what = "No firmware was installed",
                .why = end.why && end.why->kind == Kind::loaderRefused ? "the pedal refused" : reason,
                .detail = whereaboutsAfterAsking(end),
                .failure = true};
    }
    if (end.phase == FlashPhase::sending) {
        return toldIncomplete(end, reason);
    }
    return {
        .what = "The firmware could not be sent completely",
        .why = reason,
        .detail = "The pedal may have stayed in its loader. Unplug it, plug it in again and install again.",
        .failure = true};
}

Told told(const FlashEnd& end, const FlashEnd& sent, const std::string& wanted) {
    const bool taken = wanted.empty()
                           ? !sent.why
                           : !(FirmwareVersionFromString(end.version) < FirmwareVersionFromString(wanted));
    if (end.how != FlashEnd::How::confirmed || taken) {
        return told(end);
    }
    return {.what = "The pedal did not take the image",
            .why = "it is back with firmware " + end.version,
            .detail = wanted.empty() ? "It did not confirm the image. Check whether this is its version."
                                     : "Firmware " + wanted + " was sent. Install it again.",
            .failure = true};
}

Told toldFirmwareList(const std::string& read, const std::string& newest,
                      const std::optional<Trouble>& trouble) {
    const bool unusable = trouble && (trouble->kind == Kind::unverified || trouble->kind == Kind::noCache);
    if (unusable) {
        return {.what = "Firmware " + newest + " cannot be offered",
                .why = "its image could not be downloaded, verified and stored",
                .detail = firmwareListSentence(read, std::nullopt),
                .failure = true};
    }
    if (trouble) {
        const auto* const why = trouble->kind == Kind::noServer ? "the maker's server could not be reached"
                                : trouble->kind == Kind::untrustedServer
                                    ? "the server could not prove that it is the maker's"
                                    : "what the maker's server sent cannot be used";
        return {.what = "The firmware list could not be read",
                .why = why,
                .detail = firmwareListSentence(read, trouble),
                .failure = true};
    }
    return {.what = read.empty() ? "The firmware list has not been read yet"
                                 : "Firmware list read at " + read + ": " + newest + " is the newest"};
}

}  // namespace kzq
