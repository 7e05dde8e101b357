#include "audio/peaks.h"

#include <algorithm>

#include "audio/wave.h"
#include "platform/plain_file.h"

namespace kzq {

namespace {

constexpr unsigned stereo = 2;
constexpr std::size_t filePiece = std::size_t{1} << 18U;

/// Of the sample at `bytes`: 0 to 255.
std::uint8_t heightOf(const std::uint8_t* bytes) {
    constexpr unsigned signBit = 1U << (waveBitsPerSample - 1);
    constexpr unsigned unused = waveBitsPerSample - 1 - 8;
    const unsigned sample = bytes[0] | unsigned{bytes[1]} << 8U | unsigned{bytes[2]} << 16U;
    const unsigned size = (sample & signBit) != 0 ? 2 * signBit - sample : sample;
    return static_cast<std::uint8_t>(std::min(size, signBit - 1) >> unused);
}

}  // namespace

void PeakFinder::add(ByteView audio) {
    for (const auto byte : audio) {
        frame_[filled_++] = byte;
        if (filled_ == frameBytes) {
            filled_ = 0;
            takeFrame();
        }
    }
}

void PeakFinder::takeFrame() {
    if (frames_ == total_.count) {
        return;
    }
    const auto startOf = [this](std::size_t column) { return column * total_.count / Peaks::columns; };
    const auto height = std::max(heightOf(frame_.data()), heightOf(frame_.data() + frameBytes / stereo));
    for (auto& column = peaks_.known; column < Peaks::columns && startOf(column) <= frames_; ++column) {
        peaks_.heights[column] = std::max(peaks_.heights[column], height);
        if (startOf(column + 1) > frames_ + 1) {
            break;  // the column goes on
        }
    }
    ++frames_;
}

std::optional<Peaks> peaksOf(const std::filesystem::path& wave) {
    const auto file = openPlainFile(wave, Links::followed);
    if (!file || file->size <= waveHeaderSize || (file->size - waveHeaderSize) % frameBytes != 0) {
        return std::nullopt;
    }
    const auto audio = file->size - waveHeaderSize;
    Bytes piece(filePiece);
    const auto read = [&](std::size_t most, std::uint64_t offset) {
        const auto count = readAt(file->file.get(), std::span(piece).first(most), offset);
        return ByteView(piece).first(count.value_or(0));
    };
    if (!std::ranges::equal(read(waveHeaderSize, 0), waveHeader(static_cast<std::uint32_t>(audio), stereo))) {
        return std::nullopt;
    }
    PeakFinder finder(Frames::ofBytes(audio));
    for (std::uint64_t at = waveHeaderSize; at < file->size;) {
        const auto bytes = read(piece.size(), at);
        if (bytes.empty()) {
            return std::nullopt;
        }
        finder.add(bytes);
        at += bytes.size();
    }
    return finder.peaks();
}

}  // namespace kzq
