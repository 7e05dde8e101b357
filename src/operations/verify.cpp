#include "operations/verify.h"

#include <utility>

#include "operations/read_loop.h"

namespace kzq {

Outcome runVerify(Pedal& pedal, std::vector<SlotOutcome> written, const Events& events) {
    Outcome outcome{.wanted = written.size()};
    for (auto& loop : written) {
        if (!readBack(pedal, loop, events, outcome)) {
            break;
        }
        tell(events.slot, loop);
        outcome.slots.push_back(std::move(loop));
        if (outcome.end) {
            break;
        }
    }
    return outcome;
}

}  // namespace kzq
