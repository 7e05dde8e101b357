#pragma once

#include <optional>
#include <string>

#include "platform/trouble.h"

namespace kzq {

/// What there is to say about a file that was converted.
struct ConversionNote {
    std::string verdict = "whole";     ///< "exact", "whole" or "shortened"
    std::optional<Trouble> flaw = {};  ///< of a shortened one: endsEarly or broken
    double gain = 1;                   ///< not 1 if its level was changed
    bool normalized = false;           ///< the level was to be changed
    bool silenced = false;             ///< samples that were no numbers became silence
};

/// The gain in decibels.
double gainDecibels(const ConversionNote& note);

/// For the end of a line, in the tool alone: "exact; turned down by 6.0 dB, it was louder than full scale".
std::string noteWords(const ConversionNote& note);

}  // namespace kzq
