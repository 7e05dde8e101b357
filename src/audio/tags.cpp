#include "audio/tags.h"

#include <algorithm>

namespace kzq {
namespace {

constexpr int mostTags = 100;
/// Padding in front of the audio.
constexpr std::uint64_t mostZeros = 1 << 20;

std::uint64_t id3Length(const FileBytes& file, std::uint64_t offset) {
    constexpr std::uint64_t headSize = 10;
    constexpr std::uint64_t hasFooter = 0x10;
    std::uint64_t size = 0;
    for (unsigned i = 6; i < headSize; ++i) {
        size = size << 7U | (file.big(offset + i, 1).value_or(0) & 0x7FU);
    }
    const bool footer = (file.big(offset + 5, 1).value_or(0) & hasFooter) != 0;
    return headSize + size + (footer ? headSize : 0);
}

/// APE tags count all but the header that they may have.
std::uint64_t apeLength(const FileBytes& file, std::uint64_t offset) {
    constexpr std::uint64_t headSize = 32;
    constexpr std::uint64_t hasHeader = 0x80000000;
    const bool header = (file.little(offset + 20, 4).value_or(0) & hasHeader) != 0;
    return file.little(offset + 12, 4).value_or(0) + (header ? headSize : 0);
}

/// Only the end of the text is marked.
std::uint64_t lyricsLength(const FileBytes& file, std::uint64_t offset) {
    constexpr std::uint64_t longest = 1 << 16;
    for (std::uint64_t length = 11; length < std::min(longest, file.after(offset)); ++length) {
        if (file.text(offset + length, 6) == "LYRICS") {
            return length + 9;
        }
    }
    return 0;
}

}  // namespace

std::uint64_t afterTag(const FileBytes& file, std::uint64_t offset) {
    const std::string name = file.text(offset, 3);
    std::uint64_t length = 0;
    if (name == "ID3") {
        length = id3Length(file, offset);
    } else if (name == "TAG") {
        length = file.text(offset, 4) == "TAG+" ? 227 : 128;
    } else if (file.text(offset, 8) == "APETAGEX") {
        length = apeLength(file, offset);
    } else if (file.text(offset, 11) == "LYRICSBEGIN") {
        length = lyricsLength(file, offset);
    }
    return offset + std::min(length, file.after(offset));
}

std::uint64_t afterTags(const FileBytes& file, std::uint64_t offset) {
    for (int count = 0; count < mostTags; ++count) {
        const std::uint64_t next = afterTag(file, file.afterZeros(offset, offset + mostZeros));
        if (next == offset) {
            break;
        }
        offset = next;
    }
    return offset;
}

}  // namespace kzq
