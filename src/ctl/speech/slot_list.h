#pragma once

#include <string>
#include <vector>

#include "loops/slot_number.h"
#include "platform/result.h"

namespace kzq::ctl {

/// The slots that `words` name, each a number or a range such as "3-5": ascending, each once. Otherwise
/// notASlot or noSuchSlot; `where` is the word or the number.
Result<std::vector<SlotNumber>> slotsFromWords(const std::vector<std::string>& words);

/// The same of one slot, so that a number is the same slot wherever it stands: "010" is 10.
Result<SlotNumber> slotFromWord(const std::string& word);

}  // namespace kzq::ctl
