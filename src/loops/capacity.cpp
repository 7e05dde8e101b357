#include "loops/capacity.h"

#include <algorithm>
#include <numeric>

#include "loops/facts.h"
#include "loops/frames.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr std::uint64_t greenUpTo = 52'875'900;   // 19 min 59 s
constexpr std::uint64_t orangeUpTo = 60'813'900;  // 22 min 59 s
constexpr double fullWidth = 240.0;
constexpr std::uint64_t secondsPerMinute = 60;

std::uint64_t sum(const FramesBySlot& frames) {
    return std::accumulate(frames.begin(), frames.end(), std::uint64_t{0},
                           [](std::uint64_t total, const auto& entry) { return total + entry.second; });
}

}  // namespace

FramesBySlot existingAndTeedUpFrames(const Loops& existing, const Exports& teedUp) {
    FramesBySlot frames;
    for (const auto& [slot, loop] : existing) {
        frames[slot] = loop.samples;
    }
    for (const auto& [key, info] : teedUp) {
        if (const auto destination = SlotNumber::of(info.destination)) {
            frames[*destination] = Frames::ofBytes(info.bytes).count;
        }
    }
    return frames;
}

std::uint64_t existingAndTeedUpExportSamples(const Loops& existing, const Exports& teedUp) {
    return sum(existingAndTeedUpFrames(existing, teedUp));
}

std::uint64_t existingAndTeedUpExportSamplesWithProposedExport(const Loops& existing, const Exports& teedUp,
                                                               std::uint64_t frames, SlotNumber slot) {
    auto all = existingAndTeedUpFrames(existing, teedUp);
    all[slot] = frames;
    return sum(all);
}

bool hasPossibleLength(const Loop& loop) {
    return loop.samples <= capacityFrames;
}

bool fitsCapacity(std::uint64_t frames) {
    return frames < capacityFrames;
}

std::string tooLargeSentence() {
    return words("This file is too large for the available space on your 7306.");
}

std::uint64_t remainingFrames(std::uint64_t used) {
    return capacityFrames - std::min(used, capacityFrames);
}

std::string_view meterPicture(std::uint64_t used) {
    if (used <= greenUpTo) {
        return "Meter_bar_green";
    }
    return used <= orangeUpTo ? "Meter_bar_orange" : "Meter_bar_red";
}

double meterWidth(std::uint64_t used) {
    return static_cast<double>(std::min(used, capacityFrames)) / static_cast<double>(capacityFrames) *
           fullWidth;
}

std::string meterCaption(std::uint64_t used) {
    const auto seconds = remainingFrames(used) / framesPerSecond;
    return words("Space remaining: %1 min, %2 sec", seconds / secondsPerMinute, seconds % secondsPerMinute);
}

}  // namespace kzq
