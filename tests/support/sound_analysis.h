#pragma once

#include <cstddef>

#include "workshop.h"

namespace kzq {

/// Everything in one side of `samples` but a sine of `frequency`, in dB relative to that sine; the ends,
/// where a resampler settles, are left out.
double residueBelowTone(const Samples& samples, double frequency, std::size_t side = 0);

/// The level of a side of `samples` as a whole, in dB relative to a full-scale sine; without the ends.
double level(const Samples& samples, std::size_t side = 0);

/// The difference of `samples` and `expected`, in dB relative to `expected`: far below -24 dB only if
/// they agree to the sample.
double differenceLevel(const Samples& samples, const Samples& expected);

}  // namespace kzq
