#pragma once

#include <cstddef>

#include "workshop.h"

namespace kzq {

/// What one side of `samples` holds besides a sine of `frequency`, in dB below that sine; the ends, where a
/// resampler swings in, are left out.
double residueBelowTone(const Samples& samples, double frequency, std::size_t side = 0);

/// The level of a side of `samples` as a whole, in dB relative to a full-scale sine; without the ends.
double level(const Samples& samples, std::size_t side = 0);

/// What is left between `samples` and `expected`, in dB relative to `expected`: far below -24 dB only if
/// they agree to the sample.
double differenceLevel(const Samples& samples, const Samples& expected);

}  // namespace kzq
