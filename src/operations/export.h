#pragma once

#include <functional>
#include <vector>

#include "loops/export_info.h"
#include "loops/loops.h"
#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

struct ExportOrder {
    Exports exports;  ///< at least one; the working copies must stay where they are
    Loops seen;       ///< what the user was asked about; where it has no loop, the user saw an empty slot
    std::vector<SlotNumber> untouched = {};  ///< these must still be as they were seen as well
    Batches batches = Batches::one;
    /// Whether the image that was read back has the audio of that loop; with `Batches::each` only. Without
    /// it nothing is read back.
    std::function<bool(const ExportInfo&, ByteView image)> same = {};
};

/// Writes loops into the pedal, if its table, read directly before, has in these slots what the user saw
/// (changed), lengths that can be (tooLarge) and room (noRoom). With `Batches::each` that is asked again
/// before each loop, what makes the pedal fuller comes last, and the pedal has the last word on what it
/// holds: shortLoop, differs.
Outcome runExport(Pedal& pedal, const ExportOrder& order, const Events& events);

/// What makes loops shorter comes first: in this order the pedal never holds more than before or after.
std::vector<SlotNumber> inOrderOfGrowth(const Exports& exports, const Loops& loops);

}  // namespace kzq
