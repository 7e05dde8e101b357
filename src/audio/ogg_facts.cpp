#include <algorithm>

#include "audio/source_facts.h"

namespace kzq {
namespace {

constexpr std::uint64_t mostPageSize = 65'307;
constexpr int mostHeaderPages = 10'000;

struct Page {
    std::uint64_t at = 0;
    std::uint64_t body = 0;
    std::uint64_t end = 0;
    std::uint64_t packets = 0;  ///< that end in it
    std::uint64_t granule = 0;  ///< frames of the stream up to here
    std::uint64_t serial = 0;
    bool isLast = false;

    bool hasGranule() const { return granule != 0 && granule != ~0ULL; }
};

std::optional<Page> pageAt(const FileBytes& file, std::uint64_t at) {
    constexpr std::uint64_t headSize = 27;
    constexpr std::uint64_t lastFlag = 4;
    constexpr std::uint64_t goesOn = 255;
    if (file.text(at, 4) != "OggS") {
        return std::nullopt;
    }
    const std::uint64_t segments = file.big(at + 26, 1).value_or(0);
    Page page{at, at + headSize + segments, at + headSize + segments};
    for (std::uint64_t i = 0; i < segments; ++i) {
        const std::uint64_t length = file.big(at + headSize + i, 1).value_or(0);
        page.end += length;
        page.packets += length < goesOn ? 1 : 0;
    }
    page.granule = file.little(at + 6, 8).value_or(0);
    page.serial = file.little(at + 14, 4).value_or(0);
    page.isLast = (file.big(at + 5, 1).value_or(0) & lastFlag) != 0;
    return page;
}

/// The last page of the file, even if part of it is missing.
std::optional<Page> lastPage(const FileBytes& file) {
    std::optional<Page> last;
    for (auto at = file.size() - std::min(file.size(), 2 * mostPageSize); at < file.size();) {
        const auto page = pageAt(file, at);
        last = page ? page : last;
        at = page ? page->end : at + 1;
    }
    return last;
}

/// Whether the count starts with the stream: a recorded broadcast may start anywhere.
bool startsAtZero(const FileBytes& file) {
    constexpr std::uint64_t longestPacket = 8192;
    std::uint64_t at = 0;
    for (int count = 0; count < mostHeaderPages; ++count) {
        const auto page = pageAt(file, at);
        if (!page || page->hasGranule()) {
            return page && page->granule <= page->packets * longestPacket;
        }
        at = page->end;
    }
    return false;
}

}  // namespace

SourceFacts factsOfOgg(const FileBytes& file) {
    SourceFacts facts;
    facts.kind = "Ogg";
    const auto first = pageAt(file, 0);
    const auto last = lastPage(file);
    if (!first || !last) {
        return facts;
    }
    const bool isOpus = file.text(first->body, 8) == "OpusHead";
    const std::uint64_t skipped = isOpus ? file.little(first->body + 10, 2).value_or(0) : 0;
    // Several streams, side by side or one after the other, have a count each.
    if (last->serial == first->serial) {
        facts.truncated = !last->isLast || last->end > file.size();
        if (!facts.truncated && last->hasGranule() && startsAtZero(file)) {
            facts.frames = last->granule - std::min(last->granule, skipped);
            facts.countDecides = true;
        }
    }
    return facts;
}

}  // namespace kzq
