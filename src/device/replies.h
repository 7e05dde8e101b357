#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "loops/loops.h"
#include "platform/bytes.h"

namespace kzq {

// What the pedal's replies mean. Each takes a reply of the length that the command table gives.

/// To a command that can be refused.
bool refuses(ByteView reply);
/// To `stage`: 'p', 'b', or what else the pedal says.
char stageIn(ByteView reply);
/// To `busy`.
std::uint8_t sequenceIn(ByteView reply);

struct Capacity {
    std::uint32_t remaining = 0;
    std::string version;
};
/// To `capacityAndVersion`; nothing if the version is not ASCII.
std::optional<Capacity> capacityIn(ByteView reply);

/// To `firstLoops` or `lastLoops`: adds the loops to the table, the first record being the one of address
/// `first`. A record with any field at zero is an empty slot.
void addLoops(Loops& loops, ByteView reply, std::uint8_t first);

}  // namespace kzq
