#pragma once

#include <optional>

#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// The image of one loop, or why there is none. Nothing if the work has ended instead; in any case `outcome`
/// has its end, if it has, and whether the pedal was asked.
std::optional<Result<Bytes>> readLoop(Pedal& pedal, SlotNumber slot, Step step, const Events& events,
                                      Outcome& outcome);

}  // namespace kzq
