#pragma once

#include <map>
#include <string>
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
    bool full = false;  ///< the pedal may be full to its last frame, as it can be before a backup
    /// Each loop gets its digest, and with `Batches::each` it is read back and compared as well.
    bool verify = false;
    /// Those that are known: a working copy that has another by its turn is not sent (damaged). Of other
    /// loops they are taken from the working copies on their way.
    std::map<SlotNumber, std::string> digests = {};
};

/// Writes loops into the pedal, if its table, read directly before, has in these slots what the user saw
/// (changed), lengths that can be (tooLarge) and room (noRoom). With `Batches::each` that is asked again
/// before each loop, and what makes the pedal fuller comes last. The pedal has the last word on what it
/// holds: its table afterwards (shortLoop), or the audio that is read back (differs). With `Batches::one`
/// that table is read after the last loop, so what is told of a loop before that is only that it was sent.
Outcome runExport(Pedal& pedal, const ExportOrder& order, const Events& events);

/// What makes loops shorter comes first: in this order the pedal never holds more than before or after.
std::vector<SlotNumber> inOrderOfGrowth(const Exports& exports, const Loops& loops);

}  // namespace kzq
