#include <array>

#include "audio/source_facts.h"

namespace kzq {
namespace {

/// Nothing if the encoder did not store it, or for sizes that the decoder does not keep.
std::optional<SampleDigest> digestAt(const FileBytes& file, std::uint64_t offset, unsigned bits) {
    constexpr unsigned length = 16;
    constexpr std::string_view digits = "0123456789abcdef";
    SampleDigest digest{{}, bits};
    bool stored = false;
    for (unsigned i = 0; i < length; ++i) {
        const std::uint64_t byte = file.big(offset + i, 1).value_or(0);
        stored = stored || byte != 0;
        digest.md5 += digits[byte >> 4U];
        digest.md5 += digits[byte & 15U];
    }
    return stored && bits % 8 == 0 && bits <= 24 ? std::optional(digest) : std::nullopt;
}

}  // namespace

SourceFacts factsOfFlac(const FileBytes& file, std::uint64_t start) {
    // After the signature and a block header: STREAMINFO. Its bytes 10 to 17 hold the rate (20 bits), the
    // channels (3), the bits of a sample (5) and the count of frames (36); the MD5 follows.
    constexpr std::uint64_t countMask = (1ULL << 36U) - 1;
    SourceFacts facts;
    facts.audio = ByteSpan{start, file.size()};
    const std::uint64_t fields = file.big(start + 18, 8).value_or(0);
    facts.rate = fields >> 44U;
    if (const auto channels = static_cast<unsigned>(fields >> 41U & 7U) + 1; channels <= 2) {
        facts.stream = {"flac", facts.rate, channels};
    }
    if ((fields & countMask) != 0) {
        facts.frames = fields & countMask;
        facts.countDecides = true;
        facts.digest = digestAt(file, start + 26, static_cast<unsigned>(fields >> 36U & 31U) + 1);
    }
    return facts;
}

}  // namespace kzq
