#include "ctl/format.h"

#include <algorithm>

#include "audio/wave.h"

namespace kzq::ctl {
namespace {

constexpr std::uint64_t minute = 60;

std::string twoDigits(std::uint64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string withTenth(std::uint64_t tenths) {
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

}  // namespace

std::uint64_t freeFrames(const Loops& loops) {
    return remainingFrames(existingAndTeedUpExportSamples(loops, {}));
}

std::string lengthText(std::uint64_t frames) {
    const std::uint64_t tenths = frames * 10 / waveSampleRate;
    return clockText(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string sizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kilo = 1'000;
    constexpr std::uint64_t mega = 1'000'000;
    if (bytes < kilo) {
        return std::to_string(bytes) + " B";
    }
    if (bytes < mega) {
        return withTenth(bytes * 10 / kilo) + " kB";
    }
    return withTenth(bytes * 10 / mega) + " MB";
}

std::string minutesText(std::uint64_t frames) {
    const std::uint64_t seconds = frames / waveSampleRate;
    return std::to_string(seconds / minute) + " min " + std::to_string(seconds % minute) + " s";
}

std::string clockText(std::uint64_t seconds) {
    return std::to_string(seconds / minute) + ":" + twoDigits(seconds % minute);
}

std::string printable(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return result;
}

std::string loopsText(std::uint64_t count) {
    return std::to_string(count) + (count == 1 ? " loop" : " loops");
}

}  // namespace kzq::ctl
