#include "operations/outcome.h"

#include <algorithm>
#include <utility>

namespace kzq {

namespace {

bool failed(const SlotOutcome& outcome) {
    return outcome.trouble.has_value();
}

}  // namespace

void Outcome::add(const Events& events, SlotOutcome loop) {
    tell(events.slot, loop);
    slots.push_back(std::move(loop));
}

std::size_t Outcome::done() const {
    return unseen + slots.size() - static_cast<std::size_t>(std::ranges::count_if(slots, failed));
}

const SlotOutcome* Outcome::firstFailure() const {
    const auto found = std::ranges::find_if(slots, failed);
    return found == slots.end() ? nullptr : &*found;
}

}  // namespace kzq
