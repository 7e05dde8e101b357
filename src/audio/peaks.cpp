#include "audio/peaks.h"

#include <algorithm>

#include "audio/wave.h"

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

bool hasWaveHeader(const PlainFile& file) {
    if (file.size <= waveHeaderSize || (file.size - waveHeaderSize) % frameBytes != 0) {
        return false;
    }
    std::array<std::uint8_t, waveHeaderSize> header{};
    return readAt(file.file.get(), header, 0) &&
           header == waveHeader(static_cast<std::uint32_t>(file.size - waveHeaderSize), stereo);
}

std::optional<Peaks> peaksOf(const std::filesystem::path& wave) {
    const auto file = openPlainFile(wave, Links::followed);
    if (!file || !hasWaveHeader(*file)) {
        return std::nullopt;
    }
    Bytes piece(filePiece);
    PeakFinder finder(Frames::ofBytes(file->size - waveHeaderSize));
    for (std::uint64_t at = waveHeaderSize; at < file->size;) {
        const auto count = readAt(file->file.get(), piece, at).value_or(0);
        if (count == 0) {
            return std::nullopt;
        }
        finder.add(ByteView(piece).first(count));
        at += count;
    }
    return finder.peaks();
}

}  // namespace kzq
