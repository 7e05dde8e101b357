#include <optional>

#include "audio/source_facts.h"

namespace kzq {
namespace {

constexpr std::uint64_t extensibleTag = 0xFFFE;
constexpr int mostChunks = 10'000;
/// Writers that could not seek back leave all ones, or a round number just under 2 GiB.
constexpr std::uint64_t leastUnknownSize = 0x7FFF0000;

struct Format {
    std::uint64_t tag = 0;
    std::uint64_t channels = 0;
    std::uint64_t blockAlign = 0;
    std::uint64_t validBits = 0;

    /// A frame is a block: PCM, floating point, A-law and µ-law.
    bool isPlain() const { return tag == 1 || tag == 3 || tag == 6 || tag == 7; }
};

Format formatAt(const FileBytes& file, std::uint64_t body) {
    const auto field = [&](std::uint64_t offset) { return file.little(body + offset, 2).value_or(0); };
    Format format{field(0), field(2), field(12), field(14)};
    if (format.tag == extensibleTag) {
        format.tag = field(24);
        format.validBits = field(18);
    }
    return format;
}

/// The decoder goes by the valid bits; if a sample takes more bytes than those need, the codec must be given.
std::string codecFor(const Format& format) {
    if (format.tag != 1 || format.channels == 0 || format.blockAlign % format.channels != 0) {
        return {};
    }
    const std::uint64_t width = format.blockAlign / format.channels;
    if (width == (format.validBits + 7) / 8 || width < 2 || width > 4) {
        return {};
    }
    return "pcm_s" + std::to_string(width * 8) + "le";
}

/// The samples' size in an RF64 file, whose data chunk has no room for it.
std::optional<std::uint64_t> longDataSize(const FileBytes& file) {
    constexpr std::uint64_t firstChunk = 12;
    return file.text(firstChunk, 4) == "ds64" ? file.little(firstChunk + 16, 8) : std::nullopt;
}

void takeData(SourceFacts& facts, const FileBytes& file, const Format& format, std::uint64_t body,
              std::uint64_t size) {
    const std::uint64_t there = file.after(body);
    const bool isLong = file.text(0, 4) != "RIFF";
    if (isLong) {
        size = longDataSize(file).value_or(~0ULL);  // without one, it ends too early
    }
    // No samples if the file's own size agrees; else a length that was never stored.
    const bool unknown =
        !isLong && (size >= leastUnknownSize || (size == 0 && file.little(4, 4) != file.size() - 8));
    facts.openEnded = unknown && (size == 0 || size > there);
    facts.truncated = size > there && !facts.openEnded;
    if (format.isPlain() && format.blockAlign != 0) {
        facts.frames = (facts.openEnded ? there : size) / format.blockAlign;
    }
}

}  // namespace

SourceFacts factsOfWave(const FileBytes& file) {
    SourceFacts facts;
    Format format;
    std::uint64_t offset = 12;
    for (int count = 0; count < mostChunks && file.after(offset) >= 8; ++count) {
        const std::string name = file.text(offset, 4);
        const std::uint64_t size = file.little(offset + 4, 4).value_or(0);
        const std::uint64_t body = offset + 8;
        if (name == "fmt ") {
            format = formatAt(file, body);
            facts.codec = codecFor(format);
        } else if (name == "data") {
            takeData(facts, file, format, body, size);
            return facts;
        }
        offset = body + size + size % 2;
    }
    facts.truncated = true;
    return facts;
}

}  // namespace kzq
