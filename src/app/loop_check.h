#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "loops/slot_number.h"
#include "loops/status.h"

namespace kzq {

class KZQ7306;

/// The slots that an operation is about to write or erase, each with the loop that the user was asked about;
/// nothing where the user saw an empty row.
using AskedLoops = std::map<SlotNumber, std::optional<Loop>>;

/// Of a loop that no pedal can hold: its size in the table is wrong, and nothing is done with it.
std::string longerThanMemory(SlotNumber slot);

/// The pedal's table, read for an operation that is about to begin. Nothing when it does not come whole, or
/// when a slot does not hold what the user was asked about, or what no pedal can; the log then says why, with
/// `consequence` as its last sentence, and the rows are read again. Waits for the pedal.
std::optional<Loops> unchangedTable(KZQ7306& looper, const AskedLoops& asked, std::string_view consequence);

/// Whether all loops of that table can be as long as it says, also those that are not asked about; if not,
/// the same is done. To be asked before something is written.
bool possibleTable(KZQ7306& looper, const Loops& table, std::string_view consequence);

}  // namespace kzq
