#pragma once

#include <optional>

#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// The image of one loop, or why there is none. Nothing if the work has ended instead; in any case `end` is
/// set to why it has, if it has.
std::optional<Result<Bytes>> readLoop(Pedal& pedal, SlotNumber slot, Step step, const Events& events,
                                      std::optional<Trouble>& end);

}  // namespace kzq
