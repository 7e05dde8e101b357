#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "loops/loop.h"
#include "platform/bytes.h"

namespace kzq {

// What the pedal's replies mean.

/// Bytes of one record of the loop table: u32 samples, u8 tempo, u8 channel, little-endian.
inline constexpr std::size_t loopRecordLength = 6;

/// The loop in a record of loopRecordLength bytes; nothing for an empty slot, which is any record with a zero
/// field.
std::optional<Loop> loopFromRecord(ByteView record, std::uint8_t address);

}  // namespace kzq
