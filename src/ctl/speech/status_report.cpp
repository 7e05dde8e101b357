#include "ctl/speech/status_report.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "audio/wave.h"
#include "ctl/speech/format.h"
#include "loops/facts.h"

namespace kzq::ctl {
namespace {

/// Slot and numbers to the right, so that they stand in columns.
std::string row(const std::string& slot, const std::string& length, const std::string& size,
                const std::string& tempo, const std::string& channel) {
    constexpr std::size_t slotWidth = 4;
    constexpr std::size_t numberWidth = 10;
    const auto right = [](const std::string& text, std::size_t width) {
        return std::string(width - std::min(width, text.size()), ' ') + text;
    };
    return right(slot, slotWidth) + right(length, numberWidth) + right(size, numberWidth) +
           right(tempo, numberWidth) + right(channel, numberWidth);
}

/// Not modulo 2^32: a length that cannot be is not made to look like one that can.
std::uint64_t bytesOf(const Loop& loop) {
    return loop.samples * frameBytes;
}

nlohmann::json framesJson(std::uint64_t frames) {
    return {{"samples", frames}, {"seconds", static_cast<double>(frames) / framesPerSecond}};
}

}  // namespace

std::vector<std::string> statusTable(const Status& status) {
    std::vector<std::string> lines;
    if (!status.loops.empty()) {
        lines.push_back(row("Slot", "Length", "Size", "Tempo", "Channel"));
    }
    for (const auto& [slot, loop] : status.loops) {
        lines.push_back(row(std::to_string(slot.number()), lengthText(loop.samples), sizeText(bytesOf(loop)),
                            std::to_string(loop.tempo), std::to_string(loop.channel)));
    }
    lines.push_back(statusSummary(status));
    return lines;
}

std::string statusSummary(const Status& status) {
    return "Firmware " + printable(status.version) + ", " + loopsText(status.loops.size()) + ", " +
           minutesText(freeFrames(status.loops)) + " of 24 min free.";
}

std::vector<std::string> statusChanges(const Loops& before, const Loops& now) {
    std::vector<std::string> lines;
    for (const auto& [slot, loop] : before) {
        if (!now.contains(slot)) {
            lines.push_back(loopName(slot) + ": erased.");
        }
    }
    for (const auto& [slot, loop] : now) {
        const auto* const old = before.find(slot);
        if (old != nullptr && *old == loop) {
            continue;
        }
        lines.push_back(loopName(slot) + (old == nullptr ? ": new, " : ": changed, ") +
                        lengthText(loop.samples) + ", tempo " + std::to_string(loop.tempo) + ".");
    }
    return lines;
}

nlohmann::json statusJson(const Status& status) {
    nlohmann::json loops = nlohmann::json::array();
    for (const auto& [slot, loop] : status.loops) {
        nlohmann::json entry = framesJson(loop.samples);
        entry["slot"] = slot.number();
        entry["audioBytes"] = bytesOf(loop);
        entry["tempo"] = loop.tempo;
        entry["channel"] = loop.channel;
        loops.push_back(std::move(entry));
    }
    return {{"firmware", status.version},
            {"loops", std::move(loops)},
            {"free", framesJson(freeFrames(status.loops))},
            {"capacity", framesJson(capacityFrames)}};
}

}  // namespace kzq::ctl
