#pragma once

#include <vector>

#include "loops/loops.h"
#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

struct EraseOrder {
    std::vector<SlotNumber> slots;           ///< at least one, in this order
    Loops seen;                              ///< the pedal's table when the user was asked
    std::vector<SlotNumber> untouched = {};  ///< these must still be as they were seen as well
    /// Whether the pedal is asked afterwards what it still holds: a request to one that has left reads like
    /// a consent. Otherwise the outcome has no slots, and the next status shows what has become of them.
    bool look = true;
};

/// Empties slots, if the pedal's table, read directly before, has in them what the user saw (changed) and
/// possible lengths (tooLarge).
Outcome runErase(Pedal& pedal, const EraseOrder& order, const Events& events);

}  // namespace kzq
