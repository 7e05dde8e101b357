#include "app/loop_fetch.h"

#include <algorithm>
#include <utility>

namespace kzq {

LoopFetch::LoopFetch(const std::vector<SlotNumber>& slots, const Loops& table, Listening::Copy copy,
                     std::function<void(double)> moved)
    : copy_(std::move(copy)), moved_(std::move(moved)) {
    for (const auto slot : slots) {
        const auto* const loop = table.find(slot);
        left_.emplace_back(slot, Frames{loop == nullptr ? 0 : loop->samples});
        total_.count += left_.back().second.count;
    }
}

std::optional<SlotNumber> LoopFetch::due() const {
    return left_.empty() ? std::nullopt : std::optional(left_.front().first);
}

bool LoopFetch::wants(SlotNumber slot) const {
    return std::ranges::any_of(left_, [slot](const auto& entry) { return entry.first == slot; });
}

void LoopFetch::came(Result<std::filesystem::path> copy) {
    const auto [slot, length] = left_.front();
    left_.pop_front();
    done_.count += length.count;
    tellMoved({});
    copy_(slot, std::move(copy));
}

void LoopFetch::arrived(Frames frames) {
    if (!left_.empty()) {
        tellMoved(frames);
    }
}

void LoopFetch::tellMoved(Frames frames) {
    const auto share = total_.count == 0 ? 1
                                         : static_cast<double>(done_.count + frames.count) /
                                               static_cast<double>(total_.count);
    if (moved_ && std::exchange(told_, share) != share) {
        moved_(share);
    }
}

void LoopFetch::end(const Trouble& trouble) {
    for (const auto& [slot, length] : std::exchange(left_, {})) {
        copy_(slot, Trouble(trouble));
    }
}

}  // namespace kzq
