#include "operations/loop_file.h"

#include <algorithm>

#include "loops/facts.h"
#include "platform/digest.h"
#include "platform/fixed.h"
#include "platform/plain_file.h"

namespace kzq {
namespace {

constexpr std::uint32_t stereo = 2;

/// A file from its start to its end.
class Pieces : Fixed {
  public:
    Pieces(const std::filesystem::path& path, Links links) : opened_(openPlainFile(path, links)) {}

    /// 0 if it cannot be opened.
    std::uint64_t size() const { return opened_ ? opened_->size : 0; }
    /// The next bytes, which hold until the next call; empty at the end, and where it cannot be read.
    ByteView next(std::size_t most = pieceSize) {
        piece_.resize(most);
        const auto count = readAt(opened_->file.get(), piece_, at_).value_or(0);
        at_ += count;
        return ByteView(piece_).first(count);
    }

  private:
    static constexpr std::size_t pieceSize = 1 << 20;

    const Result<PlainFile> opened_;
    Bytes piece_;
    std::uint64_t at_ = 0;
};

/// Whether the rest of the file is `bytes`.
bool isRest(Pieces& file, ByteView bytes) {
    while (!bytes.empty()) {
        const auto piece = file.next();
        if (piece.empty() || piece.size() > bytes.size() ||
            !std::equal(piece.begin(), piece.end(), bytes.begin())) {
            return false;
        }
        bytes = bytes.subspan(piece.size());
    }
    return true;
}

}  // namespace

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
    Pieces pieces(file, Links::followed);
    if (pieces.size() <= waveHeaderSize || pieces.next(waveHeaderSize).size() != waveHeaderSize) {
        return {};
    }
    std::uint64_t read = waveHeaderSize;
    auto digest = SHA256StringOf([&] {
        const auto piece = pieces.next();
        read += piece.size();
        return piece;
    });
    return read == pieces.size() ? digest : "";
}

bool isLoopFile(const std::filesystem::path& path, std::uint64_t frames, const std::string& digest) {
    Pieces file(path, Links::followed);
    if (frames == 0 || frames > capacityFrames || file.size() != waveHeaderSize + frames * frameBytes) {
        return false;
    }
    const auto header = waveHeader(static_cast<std::uint32_t>(frames * frameBytes), stereo);
    return std::ranges::equal(file.next(waveHeaderSize), header) &&
           SHA256StringOf([&file] { return file.next(); }) == digest;
}

bool isFileOf(const std::filesystem::path& path, ByteView image) {
    Pieces file(path, Links::refused);
    return !image.empty() && file.size() == image.size() && isRest(file, image);
}

}  // namespace kzq
