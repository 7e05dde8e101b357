#include "operations/loop_file.h"

#include <algorithm>

#include "loops/facts.h"
#include "platform/digest.h"
#include "platform/plain_file.h"

namespace kzq {
namespace {

constexpr std::uint32_t stereo = 2;

}  // namespace

bool isLoopFile(ByteView image) {
    if (image.size() <= waveHeaderSize || !isPerfectWave(image, stereo)) {
        return false;
    }
    const auto audio = audioOf(image);
    const auto header = waveHeader(static_cast<std::uint32_t>(audio.size()), stereo);
    return audio.size() % frameBytes == 0 && std::equal(header.begin(), header.end(), image.begin());
}

ByteView audioOf(ByteView image) {
    return image.subspan(std::min(image.size(), waveHeaderSize));
}

std::uint64_t framesOf(ByteView image) {
    return audioOf(image).size() / frameBytes;
}

std::string audioDigest(ByteView image) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (const auto byte : SHA256(audioOf(image)).value_or(Bytes())) {
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

bool holdsSameAudio(const std::filesystem::path& path, ByteView image) {
    constexpr std::size_t pieceSize = 1 << 20;
    const auto opened = openPlainFile(path, Links::followed);
    if (!opened || opened->size != image.size()) {
        return false;
    }
    Bytes piece(pieceSize);
    for (auto rest = audioOf(image); !rest.empty();) {
        const auto part = std::span(piece).first(std::min(piece.size(), rest.size()));
        const auto count = readAt(opened->file.get(), part, image.size() - rest.size());
        if (!count || *count != part.size() || !std::equal(part.begin(), part.end(), rest.begin())) {
            return false;
        }
        rest = rest.subspan(part.size());
    }
    return true;
}

}  // namespace kzq
