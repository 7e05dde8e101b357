#include "audio/level.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace kzq {
namespace {

constexpr double fullScale = 8'388'608;
constexpr double lowest = -fullScale;
constexpr double highest = fullScale - 1;

template <class Float>
double sampleAt(const std::uint8_t* bytes) {
    static_assert(std::endian::native == std::endian::little);
    Float value{};
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

}  // namespace

ByteView Level::take(ByteView decoded) {
    if (kind_ == SampleKind::s24) {
        return decoded;
    }
    read(decoded);
    packed_.resize(samples_.size() * 3);
    auto* out = packed_.data();
    for (const double sample : samples_) {
        const double exact = sample * gain_ * fullScale;
        const double rounded = std::nearbyint(gain_ == 1 ? exact : exact + dither());
        const auto bits =
            static_cast<std::uint32_t>(static_cast<std::int32_t>(std::clamp(rounded, lowest, highest)));
        *out++ = static_cast<std::uint8_t>(bits);
        *out++ = static_cast<std::uint8_t>(bits >> 8U);
        *out++ = static_cast<std::uint8_t>(bits >> 16U);
    }
    return packed_;
}

void Level::read(ByteView decoded) {
    rest_.insert(rest_.end(), decoded.begin(), decoded.end());
    const std::size_t width = kind_ == SampleKind::f32 ? sizeof(float) : sizeof(double);
    const std::size_t count = rest_.size() / (2 * width) * 2;
    samples_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto* const bytes = rest_.data() + i * width;
        const double value = kind_ == SampleKind::f32 ? sampleAt<float>(bytes) : sampleAt<double>(bytes);
        const bool finite = std::isfinite(value);
        silenced_ = silenced_ || !finite;
        samples_[i] = finite ? value : 0;
        peak_ = std::max(peak_, std::abs(samples_[i]));
    }
    rest_.erase(rest_.begin(), rest_.begin() + static_cast<std::ptrdiff_t>(count * width));
}

double Level::saferGain() const {
    constexpr double roomForDither = 2;
    return (highest - roomForDither) / fullScale / peak_;
}

/// The sum of two evenly distributed values of one step each.
double Level::dither() {
    return random() + random();
}

/// From -0.5 to 0.5: xorshift64*.
double Level::random() {
    state_ ^= state_ >> 12U;
    state_ ^= state_ << 25U;
    state_ ^= state_ >> 27U;
    constexpr double range = 0x1p-53;
    return static_cast<double>(state_ * 0x2545F4914F6CDD1D >> 11U) * range - 0.5;
}

}  // namespace kzq
