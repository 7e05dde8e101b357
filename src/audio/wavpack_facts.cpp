#include "audio/source_facts.h"

namespace kzq {

SourceFacts factsOfWavPack(const FileBytes& file) {
    constexpr std::uint64_t unknown = 0xFFFFFFFF;
    SourceFacts facts;
    facts.kind = "WavPack";
    // In the header of the first block: the low 32 bits of the count, which are never all ones, and the rest.
    const std::uint64_t low = file.little(12, 4).value_or(unknown);
    const std::uint64_t high = file.big(11, 1).value_or(0);
    if (low != unknown) {
        facts.frames = low + (high << 32U) - high;
        facts.countDecides = true;
    }
    return facts;
}

}  // namespace kzq
