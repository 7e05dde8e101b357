#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/executor.h"

namespace kzq::simulator {

/// One thing that happened on the simulated wire.
struct WireEvent {
    enum class Kind { control, bulkIn, bulkOut, reset, plugged, unplugged };

    Kind kind = Kind::control;
    std::uint8_t code = 0;  ///< bmRequestType of a control request
    std::uint16_t value = 0;
    std::uint16_t index = 0;
    std::uint32_t length = 0;       ///< bytes requested (control, bulk in) or offered (bulk out)
    std::uint32_t transferred = 0;  ///< bytes transferred
    Executor::TimePoint time;
};

/// What happened on the wire, in order, and the violations. In a long run only the latest events and the
/// first violations are kept. Not synchronised: its owner guards it.
class WireJournal {
  public:
    static constexpr std::size_t mostEvents = 1 << 18;  ///< half of them are kept for certain
    static constexpr std::size_t mostViolations = 1000;

    /// Opens the entry of a transfer. False if the latest transfer on that pipe still pends: then the
    /// transport is retrying it, its entry stays, and no violation in it is recorded twice.
    bool begin(const WireEvent& event);
    /// Closes the entry that was opened last; a pending one counts as unfinished until its pipe is used
    /// again.
    void end(std::size_t transferred, bool pending);
    /// A reset, an arrival or a departure. Nothing pends after it.
    void note(WireEvent::Kind kind, Executor::TimePoint time);

    /// Something in the open transfer that a correct program never sends.
    void violation(std::string_view sentence);
    /// The same for a transfer without the command that it belongs to. Not recorded while excused.
    void outOfOrder(std::string_view sentence);
    /// A planned fault has swallowed a command without the program noticing, so what follows may lack it.
    void excuse(bool excused) { excused_ = excused; }

    void clear();
    const std::vector<WireEvent>& events() const { return events_; }
    /// Each begins with "event N: ", counted from 1 since the pedal was made, also across `clear`.
    const std::vector<std::string>& violations() const { return violations_; }

  private:
    void add(const WireEvent& event);

    std::vector<WireEvent> events_;
    std::vector<std::string> violations_;
    std::uint64_t forgotten_ = 0;  ///< events before the first in events_
    std::uint64_t current_ = 0;    ///< number of the open transfer, from 0
    bool askedAgain_ = false;
    bool excused_ = false;
    std::array<std::optional<std::uint64_t>, 3> pending_;  ///< by pipe: control, bulk in, bulk out
};

}  // namespace kzq::simulator
