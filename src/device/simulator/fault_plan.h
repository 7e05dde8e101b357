#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kzq::simulator {

/// A fault in a transfer.
enum class FaultKind {
    refuse,   ///< control only: the reply is a refusal ('N'), nothing else happens
    stall,    ///< the transfer fails with a pipe error
    shorten,  ///< half of the data moves, then the transfer ends without an error (control: half of the
              ///< reply)
    silence,  ///< no answer until the pedal leaves the bus or is reset
    unplug,   ///< the pedal leaves the bus instead of answering
    overrun,  ///< bulk only: reported as more bytes than requested
    alter     ///< bulk only: one bit of the data arrives as its opposite
};

/// A planned fault: it hits the `count`-th (from 1) matching transfer, counted from when it was planned.
struct Fault {
    enum class Where { control, bulkIn, bulkOut };

    FaultKind kind = FaultKind::refuse;
    Where where = Where::control;
    std::optional<std::uint8_t> code;  ///< control only: just this command
    std::uint32_t count = 1;
    bool repeated = false;  ///< every matching transfer from that one on
};

/// Planned faults. Not synchronised: its owner guards it.
class FaultPlan {
  public:
    void add(Fault fault) { pending_.push_back(fault); }
    void clear() { pending_.clear(); }
    /// Counts one transfer and returns its fault, if any.
    std::optional<FaultKind> next(Fault::Where where, std::uint8_t code = 0);

  private:
    std::vector<Fault> pending_;
};

/// Parses "KIND@WHERE[:COUNT][+]", as in "unplug@in:100", "refuse@E1", "silence@out:3", "stall@control:2+":
/// WHERE is in, out, control or the two hexadecimal digits of a command. Nothing if it is invalid.
std::optional<Fault> faultFromText(std::string_view text);

}  // namespace kzq::simulator
