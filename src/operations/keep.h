#pragma once

#include <vector>

#include "loops/loops.h"
#include "operations/kept_copies.h"
#include "operations/outcome.h"
#include "operations/pedal.h"
#include "operations/told.h"
#include "platform/free_space.h"

namespace kzq {

/// Copies of loops that are about to be erased or replaced.
struct KeepOrder {
    KeptCopies copies;
    std::vector<SlotNumber> slots;  ///< each is in `seen`, with a length that can be
    Loops seen;                     ///< the pedal's table when the user was asked
    Deed before = Deed::erase;      ///< erase or write
    Stamp stamp = localStamp;
    FreeSpace freeSpace = kzq::freeSpace;
};

/// What this will read from the pedal.
std::uint64_t bytesToRead(const KeepOrder& order);

/// What came of it.
struct Kept {
    Outcome outcome;
    std::string stamp = {};  ///< of the copies: see KeptCopy; empty if there are none
};

/// Reads the loops one after the other and saves them. The outcome is whole only if all of them are kept;
/// otherwise none is, and its `end` says why: also if one loop failed, which is then its last. Audio that is
/// there already takes no further space (kept). Errors besides the pedal's: changedWhileRead, diskFull,
/// folder and those of files.
Kept runKeep(Pedal& pedal, const KeepOrder& order, const Events& events);

/// The loops that the pedal was seen without, once it was to erase or replace them.
std::vector<SlotNumber> seenGone(const Outcome& operation);

/// Why the operation did not take place. busy: the pedal was in use while it was copied.
Told toldNotKept(Deed deed, const Outcome& kept);

}  // namespace kzq
