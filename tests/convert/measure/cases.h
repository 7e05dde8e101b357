#pragma once

#include <string>
#include <vector>

#include "../workshop.h"

namespace kzq {

/// A file to convert, and what ought to come of it.
struct MeasuredCase {
    std::string kind;
    std::filesystem::path source;
    std::size_t frames = 0;  ///< at 44,100 Hz; 0 for what should be refused
    Samples expected;        ///< empty when there is nothing to compare with
};

/// Makes everything that the table of kinds shows.
std::vector<MeasuredCase> measuredCases(const Workshop& shop);

/// A sine in 64-bit floating point, as a stereo WAV: finer than anything that is measured.
Bytes fineTone(std::size_t count, double frequency, std::uint32_t rate, double amplitude);

}  // namespace kzq
