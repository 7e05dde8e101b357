#include "audio/source_facts.h"

namespace kzq {

SourceFacts factsOfFlac(const FileBytes& file, std::uint64_t start) {
    // After the signature and a block header: STREAMINFO, with the count in the low 36 bits of bytes 10
    // to 17.
    constexpr std::uint64_t countMask = (1ULL << 36U) - 1;
    SourceFacts facts;
    const std::uint64_t count = file.big(start + 18, 8).value_or(0) & countMask;
    if (count != 0) {
        facts.frames = count;
    }
    return facts;
}

}  // namespace kzq
