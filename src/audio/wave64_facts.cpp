#include <algorithm>

#include "audio/source_facts.h"
#include "audio/wave_format.h"

namespace kzq {

SourceFacts factsOfWave64(const FileBytes& file) {
    // Chunks have names of 16 bytes, of which the first 4 are as in a WAV, sizes of 8 that count the name and
    // themselves, and start at multiples of 8.
    constexpr std::uint64_t headSize = 24;
    constexpr std::uint64_t leastUnknownSize = 1ULL << 62U;  // left by writers that could not seek back
    constexpr int mostChunks = 10'000;
    SourceFacts facts;
    facts.kind = "Wave64";
    facts.truncated = true;
    WaveFormat format;
    std::uint64_t offset = 40;
    for (int count = 0; count < mostChunks && file.after(offset) >= headSize; ++count) {
        const std::string name = file.text(offset, 4);
        const std::uint64_t size = file.little(offset + 16, 8).value_or(0);
        if (name == "fmt ") {
            format = waveFormatAt(file, offset + headSize);
            facts.codec = codecFor(format);
        } else if (name == "data") {
            const std::uint64_t there = file.after(offset) - headSize;
            facts.openEnded = (size <= headSize && there > 0) || size >= leastUnknownSize;
            facts.countStored = !facts.openEnded;
            facts.truncated = size > file.after(offset) && !facts.openEnded;
            facts.countDecides =
                !facts.truncated;  // the decoder stumbles over the padding behind the samples
            facts.audio = ByteSpan{
                0, offset + (facts.openEnded ? file.after(offset) : std::min(size, file.after(offset)))};
            takeCounts(facts, format, facts.openEnded ? there : size - headSize, there);
            return facts;
        }
        if (size < headSize || size > file.after(offset)) {
            return facts;
        }
        offset += (size + 7) / 8 * 8;
    }
    return facts;
}

}  // namespace kzq
