#pragma once

#include <string>
#include <vector>

#include "workshop.h"

namespace kzq {

/// A file to convert, and the expected result.
struct MeasuredCase {
    std::string kind;
    std::filesystem::path source;
    std::size_t frames = 0;  ///< at 44,100 Hz; 0 for what should be refused
    Samples expected = {};   ///< empty if there is nothing to compare with
    bool salvage = false;
};

/// Makes everything that the table of kinds shows.
std::vector<MeasuredCase> measuredCases(const Workshop& shop);

/// A sine in 64-bit floating point, as a stereo WAV: more precise than anything measured, and not limited to
/// full scale.
Bytes fineTone(std::size_t count, double frequency, std::uint32_t rate, double amplitude);

}  // namespace kzq
