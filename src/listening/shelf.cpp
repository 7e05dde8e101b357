#include "listening/shelf.h"

#include <system_error>
#include <utility>

namespace kzq {

bool Doubt::isStill(const Doubt& earlier) const {
    constexpr auto nap = std::chrono::milliseconds(100);  // clocks are read one after the other
    return pedal == earlier.pedal && asleep - earlier.asleep < nap;
}

void Shelf::put(SlotNumber slot, const Loop& loop, std::shared_ptr<Sound> sound, const Doubt& begun) {
    if (const auto old = copies_.find(slot); old != copies_.end()) {
        std::error_code ignored;
        std::filesystem::remove(old->second.sound->file(), ignored);
    }
    copies_.insert_or_assign(slot, Copy{loop, std::move(sound), begun});
}

std::shared_ptr<Sound> Shelf::find(SlotNumber slot) const {
    const auto found = copies_.find(slot);
    const bool counts = found != copies_.end() && found->second.counts && now_().isStill(found->second.begun);
    return counts ? found->second.sound : nullptr;
}

void Shelf::forget(SlotNumber slot) {
    if (const auto found = copies_.find(slot); found != copies_.end()) {
        found->second.counts = false;
    }
}

void Shelf::compareWith(const Loops& table) {
    for (auto& [slot, copy] : copies_) {
        const auto* const now = table.find(slot);
        copy.counts = copy.counts && now != nullptr && *now == copy.loop;
    }
}

}  // namespace kzq
