#include "audio/source_facts.h"

namespace kzq {
namespace {

/// Where the file continues after an ID3v2 tag, if it has one.
std::uint64_t afterId3(const FileBytes& file) {
    constexpr std::uint64_t headSize = 10;
    if (file.text(0, 3) != "ID3") {
        return 0;
    }
    std::uint64_t size = 0;
    for (unsigned i = 6; i < headSize; ++i) {
        size = size << 7U | (file.big(i, 1).value_or(0) & 0x7FU);
    }
    return headSize + size;
}

}  // namespace

SourceFacts factsOf(const FileBytes& file) {
    const std::string signature = file.text(0, 4);
    const std::string form = file.text(8, 4);
    const bool isLong = signature == "RF64" || signature == "BW64";
    if ((signature == "RIFF" || isLong) && form == "WAVE") {
        return factsOfWave(file);
    }
    if (signature == "RIFX") {
        SourceFacts facts;
        facts.unsupported = "big-endian WAV (RIFX)";
        return facts;
    }
    if (signature == "FORM" && (form == "AIFF" || form == "AIFC")) {
        return factsOfAiff(file);
    }
    if (file.text(4, 4) == "ftyp") {
        return factsOfMp4(file);
    }
    const std::uint64_t start = afterId3(file);
    if (file.text(start, 4) == "fLaC") {
        return factsOfFlac(file, start);
    }
    if (file.big(start, 2).value_or(0) >= 0xFFE0) {
        return factsOfMp3(file, start);
    }
    SourceFacts facts;
    facts.recognised = start != 0;
    return facts;
}

}  // namespace kzq
