#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>

namespace kzq {

/// One recorded loop, as the pedal's loop table describes it.
struct Loop {
    std::uint8_t address = 0;        ///< 0 to 19: the pedal's own number, the slot number minus 1
    std::uint32_t samples = 0;       ///< frames of 6 bytes
    std::uint8_t tempo = 0;          ///< never 0; passed on unchanged
    std::uint8_t channel = 0;        ///< never 0; sent back when the loop is read
    std::uint32_t bytes = 0;         ///< samples * 6, modulo 2^32
    std::uint32_t alignedBytes = 0;  ///< bytes rounded up to 64, modulo 2^32: what the pedal sends

    bool operator==(const Loop&) const = default;
};

/// Slot number, 1 to 20, to its loop; empty slots have no entry.
struct Loops : std::map<std::uint8_t, Loop> {
    using map::map;

    /// Every reply that it was made from came whole. Otherwise its gaps say nothing, and nothing is decided
    /// by it.
    bool complete = true;

    bool operator==(const Loops&) const = default;
};

/// What the pedal reports about itself.
struct Status {
    std::uint32_t remaining = 0;  ///< as received; free space is derived from the loops instead
    std::string version;          ///< 4 ASCII characters
    Loops loops;                  ///< empty if the status was requested without loops

    bool operator==(const Status&) const = default;
};

/// Bytes of one record of the loop table: u32 samples, u8 tempo, u8 channel, little-endian.
inline constexpr std::size_t loopRecordLength = 6;

/// The loop in a record of loopRecordLength bytes; nothing for an empty slot, which is any record with a zero
/// field.
std::optional<Loop> loopFromRecord(std::span<const std::uint8_t> record, std::uint8_t address);

}  // namespace kzq
