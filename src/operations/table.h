#pragma once

#include <optional>
#include <vector>

#include "loops/loops.h"
#include "loops/slot_number.h"
#include "operations/pedal.h"
#include "platform/result.h"

namespace kzq {

// What is asked of the pedal's table directly before something is written or erased. `where` of these
// troubles is the loop's name.

/// changed: the first of `slots` that does not hold in `now` what the user saw there; `words` says what has
/// happened to it: "recorded", "changed" or "erased".
std::optional<Trouble> changeBetween(const Loops& seen, const Loops& now,
                                     const std::vector<SlotNumber>& slots);

/// tooLarge: the first of `slots` with a loop longer than a pedal's memory. Then its size is wrong, and
/// nothing is done with it.
std::optional<Trouble> impossibleLength(const Loops& table, const std::vector<SlotNumber>& slots);

/// The table as it is now, unless `slots`, which are to be changed, have a loop of an impossible length, or
/// one of them or of `untouched` is no longer what the user saw.
Result<Loops> unchangedTable(Pedal& pedal, const Loops& seen, const std::vector<SlotNumber>& slots,
                             const std::vector<SlotNumber>& untouched);

}  // namespace kzq
