#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/bytes.h"
#include "platform/executor.h"
#include "platform/trouble.h"

namespace kzq {

class Pedal;

/// How far an update of the pedal's firmware has come.
enum class FlashPhase : std::uint8_t {
    asking,      ///< whether the pedal can take it now
    restarting,  ///< into its loader
    left,        ///< the bus, on the way there or because it was unplugged
    cameBack,    ///< without entering its loader: the update waits for a pedal that does
    sending,     ///< the loader prepares for 8 seconds, then takes the image and its trailer
    sent         ///< to the end
};

/// What became of an update.
struct FlashEnd {
    enum class How : std::uint8_t {
        notSent,      ///< not to the end, if at all; `phase` is where it ended
        sent,         ///< to the end; nothing has been heard of the pedal since
        confirmed,    ///< the pedal is back, runs firmware and has reported its version
        inLoader,     ///< it has come back in its loader
        unconfirmed,  ///< it has not left or not come back, or does not report a version
    };

    How how = How::notSent;
    FlashPhase phase = FlashPhase::asking;
    std::string version = {};  ///< as reported; only of `confirmed`
    /// Of `notSent` and `unconfirmed`: why; stillInLoader, noReturn, unknownVersion, or cancelled: nobody
    /// waited for it. Of `sent`: noAnswer if the loader left a request or the trailer unanswered, which is no
    /// refusal.
    std::optional<Trouble> why = {};
    unsigned percent = 0;     ///< of the image that has gone out
    bool fromLoader = false;  ///< of `notSent`: the pedal was in its loader from the start
};

/// Both on the operation's thread; either may be missing.
struct FlashEvents {
    std::function<void(FlashPhase)> phase = {};
    /// Again and again during a phase, with how long it has been waited for something.
    std::function<void(Executor::Duration waited)> waiting = {};
    /// While `sending`: each time that another percent of the image has gone out, from 0, when its turn
    /// comes.
    std::function<void(unsigned percent)> image = {};
};

/// What is under way in an update, for people.
struct FlashStep {
    static constexpr int count = 4;

    int number = 0;     ///< 1 to `count`; 0: there is nothing to say
    std::string words;  ///< "Sending image, 61 %"
    std::string said;   ///< for a screen reader, which gets only the quarters
};
/// `percent`: of the image, once its turn has come.
FlashStep flashStep(FlashPhase phase, std::optional<unsigned> percent);

/// Sends an image, which must not be empty. Once `asking` has been reported nothing but its own end ends
/// this: the pedal may leave and come back, and `Pedal::stop` has no effect while the image is under way.
///
/// A pedal that does not come back as its loader leaves the update pending in the link. A program that
/// leaves things behind (see Pedal::Limits) gives it up after the limit, or at once if the pedal comes back
/// in its normal firmware; without a limit, a minute after `stop`. Others wait until one comes, or for
/// `stop`.
FlashEnd runFlash(Pedal& pedal, const Bytes& image, const FlashEvents& events);

/// Of what was `sent`: waits for the pedal's return and its version, 10 seconds each at most.
FlashEnd confirmFlash(Pedal& pedal, const FlashEnd& sent, const FlashEvents& events);

}  // namespace kzq
