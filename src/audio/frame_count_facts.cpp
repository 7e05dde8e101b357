#include "audio/source_facts.h"

namespace kzq {

SourceFacts factsOfFlac(const FileBytes& file, std::uint64_t start) {
    // Behind the signature and a block head: STREAMINFO, with the count in the low 36 bits of bytes 10 to 17.
    constexpr std::uint64_t countMask = (1ULL << 36U) - 1;
    SourceFacts facts;
    const std::uint64_t count = file.big(start + 18, 8).value_or(0) & countMask;
    if (count != 0) {
        facts.frames = count;
    }
    return facts;
}

SourceFacts factsOfMp3(const FileBytes& file, std::uint64_t start) {
    SourceFacts facts;
    const std::uint64_t head = file.big(start, 4).value_or(0);
    const bool versionOne = (head >> 19U & 3U) == 3;
    const bool mono = (head >> 6U & 3U) == 3;
    const bool layerThree = (head >> 17U & 3U) == 1;
    // The tag stands where the first frame's samples would be, behind its side information.
    const std::uint64_t sideSize = versionOne ? (mono ? 17 : 32) : (mono ? 9 : 17);
    const std::uint64_t tag = start + 4 + sideSize;
    const std::string name = file.text(tag, 4);
    if (!layerThree || (name != "Xing" && name != "Info") || (file.big(tag + 4, 4).value_or(0) & 1U) == 0) {
        return facts;
    }
    const std::uint64_t frameSize = versionOne ? 1152 : 576;
    const std::uint64_t padding = file.big(tag + 141, 3).value_or(0);
    // Encoders count their own frames a little differently.
    const std::uint64_t unsure = (padding >> 12U) + (padding & 0xFFFU) + 2 * frameSize;
    const std::uint64_t count = file.big(tag + 8, 4).value_or(0) * frameSize;
    if (count > unsure) {
        facts.frames = count - unsure;
    }
    return facts;
}

}  // namespace kzq
