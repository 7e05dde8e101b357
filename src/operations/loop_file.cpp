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
    return SHA256String(audioOf(image)).value_or("");
}

std::string audioDigest(const std::filesystem::path& file) {
    constexpr std::size_t pieceSize = 1 << 20;
    const auto opened = openPlainFile(file, Links::followed);
    if (!opened) {
        return {};
    }
    RunningSHA256 digest;
    Bytes piece(pieceSize);
    for (std::uint64_t at = waveHeaderSize; at < opened->size;) {
        const auto count = readAt(opened->file.get(), piece, at);
        if (!count || *count == 0) {
            return {};
        }
        digest.add(std::span(piece).first(*count));
        at += *count;
    }
    return digest.hexadecimal();
}

}  // namespace kzq
