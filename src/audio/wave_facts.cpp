#include <optional>

#include "audio/source_facts.h"
#include "audio/wave_format.h"

namespace kzq {
namespace {

constexpr int mostChunks = 10'000;
/// Writers that could not seek back leave all ones, or a round number just under 2 GiB.
constexpr std::uint64_t leastUnknownSize = 0x7FFF0000;

/// The samples' size in an RF64 file, whose data chunk has no room for it.
std::optional<std::uint64_t> longDataSize(const FileBytes& file) {
    constexpr std::uint64_t firstChunk = 12;
    return file.text(firstChunk, 4) == "ds64" ? file.little(firstChunk + 16, 8) : std::nullopt;
}

void takeData(SourceFacts& facts, const FileBytes& file, const WaveFormat& format, std::uint64_t body,
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
    facts.countStored = !facts.openEnded;
    takeCounts(facts, format, facts.openEnded ? there : size, there);
}

}  // namespace

SourceFacts factsOfWave(const FileBytes& file) {
    SourceFacts facts;
    WaveFormat format;
    std::uint64_t offset = 12;
    for (int count = 0; count < mostChunks && file.after(offset) >= 8; ++count) {
        const std::string name = file.text(offset, 4);
        const std::uint64_t size = file.little(offset + 4, 4).value_or(0);
        const std::uint64_t body = offset + 8;
        if (name == "fmt ") {
            format = waveFormatAt(file, body);
            facts.codec = codecFor(format);
        } else if (name == "data") {
            takeData(facts, file, format, body, size);
            facts.stream = facts.codec.empty() ? streamOf(format) : std::nullopt;
            return facts;
        }
        offset = body + size + size % 2;
    }
    facts.truncated = true;
    return facts;
}

}  // namespace kzq
