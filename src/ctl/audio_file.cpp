#include "ctl/audio_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "loops/capacity.h"
#include "loops/facts.h"
#include "platform/descriptor.h"
#include "platform/digest.h"

namespace kzq::ctl {
namespace {

constexpr std::uint32_t stereo = 2;

/// Fills `into`; short only at the end of the file.
std::optional<std::size_t> readInto(int file, std::span<std::uint8_t> into) {
    std::size_t count = 0;
    while (count < into.size()) {
        const ssize_t got = ::read(file, into.data() + count, into.size() - count);
        if (got < 0 && errno != EINTR) {
            return std::nullopt;
        }
        if (got == 0) {
            break;
        }
        count += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return count;
}

/// Opened without waiting, which a pipe of that name would make it do; none when it is no plain file.
Descriptor openPlainFile(const std::filesystem::path& path, std::uint64_t& size) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat facts {};
    if (!file || ::fstat(file.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return {};
    }
    size = static_cast<std::uint64_t>(facts.st_size);
    return file;
}

}  // namespace

std::optional<Bytes> readPlainFile(const std::filesystem::path& path, std::uint64_t limit) {
    std::uint64_t size = 0;
    const auto file = openPlainFile(path, size);
    if (!file || size > limit) {
        return std::nullopt;
    }
    Bytes bytes(static_cast<std::size_t>(size));
    const auto count = readInto(file.get(), bytes);
    if (!count) {
        return std::nullopt;
    }
    bytes.resize(*count);
    return bytes;
}

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
    std::uint64_t size = 0;
    const auto file = openPlainFile(path, size);
    if (!file || size != image.size() || ::lseek(file.get(), waveHeaderSize, SEEK_SET) < 0) {
        return false;
    }
    Bytes piece(pieceSize);
    for (auto rest = audioOf(image); !rest.empty();) {
        const auto part = std::span(piece).first(std::min(piece.size(), rest.size()));
        const auto count = readInto(file.get(), part);
        if (!count || *count != part.size() || !std::equal(part.begin(), part.end(), rest.begin())) {
            return false;
        }
        rest = rest.subspan(part.size());
    }
    return true;
}

}  // namespace kzq::ctl
