#include "device/replies.h"

#include "loops/facts.h"
#include "platform/little_endian.h"

namespace kzq {

std::optional<Loop> loopFromRecord(ByteView record, std::uint8_t address) {
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

}  // namespace kzq
