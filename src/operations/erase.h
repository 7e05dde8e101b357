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
};

/// Empties slots, if the pedal's table, read directly before, has in them what the user saw (changed) and
/// possible lengths (tooLarge). What is gone is seen in the table that is read afterwards: a request without
/// an answer reads like a consent.
Outcome runErase(Pedal& pedal, const EraseOrder& order, const Events& events);

}  // namespace kzq
