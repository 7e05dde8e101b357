#include <algorithm>
#include <array>
#include <string_view>

#include "audio/source_facts.h"
#include "words/words.h"

namespace kzq {
namespace {

constexpr int mostChunks = 10'000;

/// An extended float of 80 bits: sign and exponent, then a mantissa with its leading 1. 0 if it is no rate.
std::uint64_t rateAt(const FileBytes& file, std::uint64_t offset) {
    constexpr std::uint64_t bias = 16'383;
    constexpr std::uint64_t mostBits = 24;
    const std::uint64_t power = file.big(offset, 2).value_or(0);
    return power < bias || power > bias + mostBits
               ? 0
               : file.big(offset + 2, 8).value_or(0) >> (63 + bias - power);
}

void takeCommon(SourceFacts& facts, const FileBytes& file, std::uint64_t body) {
    constexpr std::array<std::string_view, 12> plain{"NONE", "twos", "sowt", "in24", "in32", "42ni",
                                                     "23ni", "fl32", "FL32", "fl64", "alaw", "ulaw"};
    const bool compressed = file.text(8, 4) == "AIFC";
    const std::string kind = compressed ? file.text(body + 18, 4) : "NONE";
    const std::uint64_t bits = file.big(body + 6, 2).value_or(0);
    if (kind == "sowt" && bits != 16) {
        facts.unsupported = words("%1-bit little-endian AIFF-C", bits);
    }
    facts.rate = rateAt(file, body + 8);
    if (std::ranges::find(plain, kind) != plain.end()) {
        facts.frames = file.big(body + 2, 4);
    }
    const std::uint64_t channels = file.big(body, 2).value_or(0);
    if ((kind == "NONE" || kind == "sowt") && bits % 8 == 0 && (channels == 1 || channels == 2)) {
        const std::string order = bits == 8 ? "" : kind == "sowt" ? "le" : "be";
        facts.stream = {"pcm_s" + std::to_string(bits) + order, facts.rate, static_cast<unsigned>(channels)};
    }
}

}  // namespace

SourceFacts factsOfAiff(const FileBytes& file) {
    SourceFacts facts;
    std::uint64_t offset = 12;
    std::uint64_t size = 0;
    std::uint64_t there = 0;
    for (int count = 0; count < mostChunks && file.after(offset) >= 8; ++count) {
        const std::string name = file.text(offset, 4);
        const std::uint64_t length = file.big(offset + 4, 4).value_or(0);
        const std::uint64_t body = offset + 8;
        if (name == "COMM") {
            takeCommon(facts, file, body);
        } else if (name == "SSND") {
            size = length;
            there = file.after(body);
        }
        offset = body + length + length % 2;
    }
    facts.truncated = there < size;
    if (facts.truncated && facts.frames) {
        facts.present = *facts.frames * there / size;
    }
    return facts;
}

}  // namespace kzq
