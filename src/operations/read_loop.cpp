#include "operations/read_loop.h"

#include <utility>

namespace kzq {

std::optional<Result<Bytes>> readLoop(Pedal& pedal, SlotNumber slot, Step step, const Events& events,
                                      Outcome& outcome) {
    tell(events.begins, slot, step);
    std::optional<Result<Bytes>> came;
    const auto ended = pedal.importLoops(
        {slot}, [&events](SlotNumber of, std::uint64_t bytes) { tell(events.moved, of, bytes); },
        [&came](SlotNumber /*slot*/, Result<Bytes> image) { came = std::move(image); });
    outcome.begun = outcome.begun || pedal.begun();
    if (!ended) {
        outcome.end = ended.error();
    }
    // A failure is then what ended it, or a cancel.
    return ended || (came && *came) ? std::move(came) : std::nullopt;
}

}  // namespace kzq
