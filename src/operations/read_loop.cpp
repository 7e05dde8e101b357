#include "operations/read_loop.h"

#include <utility>

#include "operations/loop_file.h"

namespace kzq {

std::optional<Result<Bytes>> readLoop(Pedal& pedal, SlotNumber slot, Step step, const Events& events,
                                      Outcome& outcome) {
    tell(events.begins, slot, step);
    std::optional<Result<Bytes>> came;
    const auto ended = pedal.importLoops(
        {slot}, [&events](SlotNumber of, std::uint64_t bytes) { tell(events.moved, of, bytes); },
        [&came](SlotNumber /*slot*/, Result<Bytes> image) { came = std::move(image); }, events.arrived);
    outcome.begun = outcome.begun || pedal.begun();
    if (!ended) {
        outcome.end = ended.error();
    }
    // A failure is then what ended it, or a cancel.
    return ended || (came && *came) ? std::move(came) : std::nullopt;
}

bool readBack(Pedal& pedal, SlotOutcome& loop, const Events& events, Outcome& outcome) {
    if (loop.digest.empty()) {  // the working copy could not be read for it
        loop.trouble = Trouble{Trouble::Kind::noAudio};
        return true;
    }
    auto image = readLoop(pedal, loop.slot, Step::compare, events, outcome);
    if (!image) {
        return false;
    }
    if (!*image) {
        loop.trouble = std::move(image->error());
    } else if (audioDigest(**image) != loop.digest) {
        loop.trouble = Trouble{Trouble::Kind::differs};
    } else {
        loop.did = SlotOutcome::Did::compared;
    }
    return true;
}

}  // namespace kzq
