#include "audio/wave_format.h"

#include <algorithm>

namespace kzq {
namespace {

constexpr std::uint64_t extensibleTag = 0xFFFE;

}  // namespace

WaveFormat waveFormatAt(const FileBytes& file, std::uint64_t body) {
    const auto field = [&](std::uint64_t offset) { return file.little(body + offset, 2).value_or(0); };
    WaveFormat format{field(0), field(2), file.little(body + 4, 4).value_or(0), field(12), field(14)};
    if (format.tag == extensibleTag) {
        format.tag = field(24);
        format.validBits = field(18);
    }
    return format;
}

std::string codecFor(const WaveFormat& format) {
    // The decoder goes by the valid bits, although a sample may take more bytes than those need.
    if (format.tag != 1 || format.channels == 0 || format.blockAlign % format.channels != 0) {
        return {};
    }
    const std::uint64_t width = format.blockAlign / format.channels;
    if (width == (format.validBits + 7) / 8 || width < 2 || width > 4) {
        return {};
    }
    return "pcm_s" + std::to_string(width * 8) + "le";
}

std::optional<StreamFacts> streamOf(const WaveFormat& format) {
    const bool whole = format.channels * format.validBits == format.blockAlign * 8;
    if (!whole || format.channels < 1 || format.channels > 2 || (format.tag != 1 && format.tag != 3)) {
        return std::nullopt;
    }
    const std::string bits = std::to_string(format.validBits);
    const std::string codec = format.tag == 3 ? "pcm_f" + bits + "le"
                              : bits == "8"   ? "pcm_u8"
                                              : "pcm_s" + bits + "le";
    return StreamFacts{codec, format.rate, static_cast<unsigned>(format.channels)};
}

void takeCounts(SourceFacts& facts, const WaveFormat& format, std::uint64_t size, std::uint64_t there) {
    constexpr std::uint64_t unstored = ~0ULL;
    facts.rate = format.rate;
    if (format.isPlain() && format.blockAlign != 0 && size != unstored) {
        facts.frames = size / format.blockAlign;
        facts.present = std::min(size, there) / format.blockAlign;
    }
}

}  // namespace kzq
