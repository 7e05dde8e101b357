#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "loops/status.h"

namespace kzq {

class KZQ7306;

/// The slots that an operation is about to write or erase, each with the loop that the user was asked about;
/// nothing where the user saw an empty row.
using AskedLoops = std::map<std::uint8_t, std::optional<Loop>>;

/// Of a loop that no pedal can hold: its size in the table is wrong, and nothing is done with it.
std::string longerThanMemory(std::uint8_t slot);

/// The pedal's table, read for an operation that is about to begin. Nothing when it does not come whole, or
/// when a slot does not hold what the user was asked about, or what no pedal can; the log then says why, with
/// `consequence` as its last sentence. Waits for the pedal.
std::optional<Loops> unchangedTable(KZQ7306& looper, const AskedLoops& asked, std::string_view consequence);

}  // namespace kzq
