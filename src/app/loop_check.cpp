#include "app/loop_check.h"

#include "device/kzq7306.h"
#include "device/whole_status.h"
#include "loops/capacity.h"
#include "platform/log.h"

namespace kzq {

namespace {

/// What has happened to a slot, if anything, and why that stops the operation.
std::string change(SlotNumber slot, const std::optional<Loop>& asked, const Loops& now) {
    const auto* const found = now.find(slot);
    const auto there = found == nullptr ? std::nullopt : std::optional(*found);
    if (there && !hasPossibleLength(*there)) {
        return longerThanMemory(slot);
    }
    if (there == asked) {
        return {};
    }
    const auto loop = "loop " + std::to_string(slot.number());
    if (!asked) {
        return "a loop was recorded into slot " + std::to_string(slot.number()) + " meanwhile.";
    }
    return loop + (there ? " was recorded anew meanwhile." : " is gone from the pedal.");
}

void stop(KZQ7306& looper, const std::string& why, std::string_view consequence) {
    log(LogCategory::application, why + " " + std::string(consequence));
    looper.refresh();
}

}  // namespace

std::string longerThanMemory(SlotNumber slot) {
    return "loop " + std::to_string(slot.number()) + " is said to be longer than the pedal's memory.";
}

std::optional<Loops> unchangedTable(KZQ7306& looper, const AskedLoops& asked, std::string_view consequence) {
    auto status = wholeStatus(looper);
    if (!status) {
        stop(looper, "the list of loops could not be read from the pedal.", consequence);
        return std::nullopt;
    }
    for (const auto& [slot, loop] : asked) {
        if (const auto why = change(slot, loop, status->loops); !why.empty()) {
            stop(looper, why, consequence);
            return std::nullopt;
        }
    }
    return std::move(status->loops);
}

bool possibleTable(KZQ7306& looper, const Loops& table, std::string_view consequence) {
    for (const auto& [slot, loop] : table) {
        if (!hasPossibleLength(loop)) {
            stop(looper, longerThanMemory(slot), consequence);
            return false;
        }
    }
    return true;
}

}  // namespace kzq
