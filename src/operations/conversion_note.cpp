#include "operations/conversion_note.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "operations/sentences.h"

namespace kzq {
namespace {

constexpr double leastShown = 0.05;

/// "6.0"
std::string rounded(double value) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    return text.data();
}

std::string gainWords(const ConversionNote& note) {
    const double gain = gainDecibels(note);
    if (note.normalized) {
        return std::string("normalized by ") + (gain < 0 ? "-" : "+") + rounded(std::abs(gain)) + " dB";
    }
    return "turned down by " + (-gain < leastShown ? "less than 0.1" : rounded(-gain)) +
           " dB, it was louder than full scale";
}

}  // namespace

double gainDecibels(const ConversionNote& note) {
    return 20 * std::log10(note.gain);
}

std::string noteWords(const ConversionNote& note) {
    std::string words = note.verdict;
    if (note.flaw) {
        words += ": " + flawWords(*note.flaw);
    }
    if (note.gain != 1) {
        words += "; " + gainWords(note);
    }
    return words + (note.silenced ? "; samples that were no numbers became silence" : "");
}

}  // namespace kzq
