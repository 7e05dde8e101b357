#include "device/replies.h"

#include <algorithm>

#include "device/wire.h"
#include "platform/little_endian.h"

namespace kzq {

namespace {

constexpr std::size_t versionOffset = 4;

/// The loop that a record describes, if it describes one.
std::optional<Loop> loopIn(ByteView record, std::uint8_t address) {
    constexpr std::uint32_t alignment = 64;
    Loop loop;
    loop.address = address;
    loop.samples = loadU32(record, 0);
    loop.tempo = record[4];
    loop.channel = record[5];
    loop.bytes = static_cast<std::uint32_t>(loop.samples * frameBytes);
    loop.alignedBytes = (loop.bytes + (alignment - 1)) & ~(alignment - 1);
    if (loop.samples == 0 || loop.tempo == 0 || loop.channel == 0) {
        return std::nullopt;
    }
    return loop;
}

}  // namespace

bool refuses(ByteView reply) {
    return reply[answerOffset] == refusal;
}

char stageIn(ByteView reply) {
    return static_cast<char>(reply[stageOffset]);
}

std::uint8_t sequenceIn(ByteView reply) {
    return reply[sequenceOffset];
}

std::optional<Capacity> capacityIn(ByteView reply) {
    constexpr std::uint8_t lastAscii = 127;
    const auto version = reply.subspan(versionOffset);
    if (std::ranges::any_of(version, [](std::uint8_t byte) { return byte > lastAscii; })) {
        return std::nullopt;
    }
    return Capacity{loadU32(reply, 0), {version.begin(), version.end()}};
}

void addLoops(Loops& loops, ByteView reply, std::uint8_t first) {
    for (std::size_t i = 0; i < recordsInReply; ++i) {
        const auto address = static_cast<std::uint8_t>(first + i);
        if (const auto loop = loopIn(reply.subspan(i * loopRecordLength, loopRecordLength), address)) {
            loops.put(*SlotNumber::of(address + 1U), *loop);
        }
    }
}

}  // namespace kzq
