#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "loops/export_info.h"
#include "loops/loops.h"
#include "loops/slot_number.h"

namespace kzq {

// What fits into the pedal. All counts are frames; divisions truncate.

/// Frames by slot.
using FramesBySlot = std::map<SlotNumber, std::uint64_t>;

/// The contents of each slot once everything staged is written: a staged file counts instead of the loop it
/// will overwrite.
FramesBySlot existingAndTeedUpFrames(const Loops& existing, const Exports& teedUp);
std::uint64_t existingAndTeedUpExportSamples(const Loops& existing, const Exports& teedUp);
/// The same with `frames` for `slot`, in place of what is there.
std::uint64_t existingAndTeedUpExportSamplesWithProposedExport(const Loops& existing, const Exports& teedUp,
                                                               std::uint64_t frames, SlotNumber slot);

/// Whether a loop can be as long as the pedal's table says. If not, it is neither read nor replaced nor
/// erased: its size wraps, and the rest of the table is in doubt as well.
bool hasPossibleLength(const Loop& loop);

/// Whether so many frames may be in use. Strict: an exactly full pedal is refused.
bool fitsCapacity(std::uint64_t frames);
std::string tooLargeSentence();  ///< of a file

/// The meter for so many frames in use; more than the capacity counts as full.
std::uint64_t remainingFrames(std::uint64_t used);
std::string_view meterPicture(
    std::uint64_t used);                       ///< "Meter_bar_green", "Meter_bar_orange", "Meter_bar_red"
double meterWidth(std::uint64_t used);         ///< 0 to 240 points
std::string meterCaption(std::uint64_t used);  ///< "Space remaining: 4 min, 0 sec"

}  // namespace kzq
