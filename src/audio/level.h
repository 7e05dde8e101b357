#pragma once

#include <cstdint>

#include "platform/bytes.h"

namespace kzq {

/// What the decoder is asked for, as interleaved little-endian samples on two channels.
enum class SampleKind : std::uint8_t {
    s24,  ///< the pedal's own: nothing to change
    f32,
    f64
};

/// Turns the decoder's samples into the pedal's, and notes their level. Full scale is 1; the pedal's largest
/// positive value is one step below it, and stands for it, too.
class Level {
  public:
    /// With a gain other than 1 it dithers (triangular, two steps wide, the same every time), as rounding
    /// would otherwise depend on the signal.
    explicit Level(SampleKind kind, double gain = 1) : kind_(kind), gain_(gain) {}

    /// The pedal's samples for the next piece of the decoder's output, which may end anywhere. Valid until
    /// the next call.
    ByteView take(ByteView decoded);

    /// Of the decoder's samples, before the gain; not noted for `s24`.
    double peak() const { return peak_; }
    bool isTooLoud() const { return peak_ > 1; }
    /// The gain with which nothing clips.
    double saferGain() const;
    /// Whether some samples were no numbers, or infinite, and became silence.
    bool silenced() const { return silenced_; }
    /// The frames of the last piece at their own level; none for `s24`.
    const std::vector<double>& samples() const { return samples_; }

  private:
    void read(ByteView decoded);
    double dither();
    double random();

    SampleKind kind_;
    double gain_;
    double peak_ = 0;
    bool silenced_ = false;
    std::uint64_t state_ = 0x9E3779B97F4A7C15;
    Bytes rest_;  ///< the beginning of a frame
    std::vector<double> samples_;
    Bytes packed_;
};

}  // namespace kzq
