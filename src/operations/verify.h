#pragma once

#include <vector>

#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// Reads back loops that an export has written, in this order, and compares them with their digests: differs.
Outcome runVerify(Pedal& pedal, std::vector<SlotOutcome> written, const Events& events);

}  // namespace kzq
