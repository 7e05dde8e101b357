#include "ctl/speech/format.h"

#include <algorithm>

#include "audio/wave.h"
#include "loops/facts.h"

namespace kzq::ctl {
namespace {

constexpr std::uint64_t minute = 60;

}  // namespace

std::uint64_t freeFrames(const Loops& loops) {
    return remainingFrames(existingAndTeedUpExportSamples(loops, {}));
}

std::string lengthText(std::uint64_t frames) {
    const std::uint64_t tenths = frames * 10 / framesPerSecond;
    return clockText(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string minutesText(std::uint64_t frames) {
    const std::uint64_t seconds = frames / framesPerSecond;
    return std::to_string(seconds / minute) + " min " + std::to_string(seconds % minute) + " s";
}

std::string printable(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return result;
}

}  // namespace kzq::ctl
