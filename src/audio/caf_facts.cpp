#include <algorithm>
#include <bit>
#include <cmath>

#include "audio/source_facts.h"

namespace kzq {
namespace {

constexpr std::uint64_t toTheEnd = ~0ULL;
constexpr std::uint64_t mostUnits = 1ULL << 40U;

struct Description {
    std::uint64_t rate = 0;
    std::string codec;
    std::uint64_t packetBytes = 0;
};

Description describedAt(const FileBytes& file, std::uint64_t body) {
    const auto rate = std::bit_cast<double>(file.big(body, 8).value_or(0));
    return {rate >= 1 && rate < 1e7 ? static_cast<std::uint64_t>(std::lround(rate)) : 0,
            file.text(body + 8, 4), file.big(body + 16, 4).value_or(0)};
}

/// The table of packets says how much of the decoder's output is audio. Not all programs write it well; a
/// codec whose packets have their own counts does without.
void takePackets(SourceFacts& facts, const FileBytes& file, std::uint64_t body, std::uint64_t rate) {
    const std::uint64_t length = file.big(body + 8, 8).value_or(0);
    const std::uint64_t start = file.big(body + 16, 4).value_or(0);
    if (length > 0 && length < mostUnits && rate != 0) {
        facts.sound = SoundSpan{start, length, rate};
    }
}

}  // namespace

SourceFacts factsOfCaf(const FileBytes& file) {
    constexpr std::uint64_t headSize = 12;
    constexpr std::uint64_t editCount = 4;
    constexpr int mostChunks = 10'000;
    SourceFacts facts;
    facts.kind = "CAF";
    facts.truncated = true;
    Description description;
    std::uint64_t offset = 8;
    for (int count = 0; count < mostChunks && file.after(offset) >= headSize; ++count) {
        const std::string name = file.text(offset, 4);
        const std::uint64_t body = offset + headSize;
        const std::uint64_t there = file.after(body);
        std::uint64_t size = file.big(offset + 4, 8).value_or(0);
        if (name == "desc") {
            description = describedAt(file, body);
        } else if (name == "pakt" && description.codec == "aac ") {
            takePackets(facts, file, body, description.rate);
        } else if (name == "data") {
            facts.openEnded = size == toTheEnd;
            facts.countStored = !facts.openEnded;
            size = facts.openEnded ? there : size;
            facts.truncated = size > there;
            if (description.codec == "lpcm" && description.packetBytes != 0 && size > editCount) {
                facts.frames = (size - editCount) / description.packetBytes;
                facts.present = (std::min(size, there) - editCount) / description.packetBytes;
            }
        }
        if (size > there) {
            return facts;
        }
        offset = body + size;
    }
    return facts;
}

}  // namespace kzq
