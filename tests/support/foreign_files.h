#pragma once

#include "workshop.h"

namespace kzq {

// Files that no available tool writes.

/// 24 valid bits in samples of 32, as an extensible WAV: 44,100 Hz stereo.
Bytes wave24In32(const Samples& samples);
/// A WAV converted to RF64, the variant for files above 4 GiB.
Bytes rf64(Bytes wave);
/// A plain WAV converted to its big-endian variant, RIFX.
Bytes rifx(Bytes wave);
/// An MPEG-4 file, with its movie box at the end, plus the tag with the true length.
Bytes withLengthTag(Bytes mp4, std::uint32_t priming, std::uint32_t padding, std::uint64_t length);

}  // namespace kzq
