#pragma once

#include <optional>

#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// The image of one loop, or why there is none. Nothing if the work has ended instead; in any case `outcome`
/// has its end, if it has, and whether the pedal was asked.
std::optional<Result<Bytes>> readLoop(Pedal& pedal, SlotNumber slot, Step step, const Events& events,
                                      Outcome& outcome);

/// Reads back a loop that was sent and has its digest: `loop` is then compared, or has what is wrong. False
/// if the work has ended instead; `outcome` as above.
bool readBack(Pedal& pedal, SlotOutcome& loop, const Events& events, Outcome& outcome);

}  // namespace kzq
