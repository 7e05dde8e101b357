#include "audio/source_digest.h"

#include <algorithm>
#include <cerrno>

#include "loops/facts.h"
#include "platform/plain_file.h"

namespace kzq {
namespace {

constexpr std::uint64_t mostFramesAtOnce = 1 << 16;
constexpr std::size_t sampleBytesOfPedal = 3;

}  // namespace

Result<void> SourceDigest::follow(std::uint64_t sampleBytes) {
    while (sampleBytes - done_ >= frameBytes) {
        piece_.resize(std::min((sampleBytes - done_) / frameBytes, mostFramesAtOnce) * frameBytes);
        const auto count = readAt(file_.get(), piece_, waveHeaderSize + done_);
        if (!count || *count != piece_.size()) {
            return Trouble{Trouble::Kind::file, "read", EIO};
        }
        md5_.add(sourceSamples(piece_));
        done_ += piece_.size();
    }
    return {};
}

/// A sample of fewer bits is the upper part of the pedal's; one channel is both of its sides.
ByteView SourceDigest::sourceSamples(ByteView frames) {
    if (width_ == sampleBytesOfPedal && channels_ == 2) {
        return frames;
    }
    samples_.resize(frames.size() / frameBytes * channels_ * width_);
    auto* out = samples_.data();
    const std::size_t step = channels_ == 2 ? sampleBytesOfPedal : frameBytes;
    for (std::size_t at = sampleBytesOfPedal - width_; at < frames.size(); at += step) {
        out = std::copy_n(frames.data() + at, width_, out);
    }
    return samples_;
}

}  // namespace kzq
