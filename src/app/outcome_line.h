#pragma once

#include <string>
#include <string_view>

#include "operations/flash.h"
#include "operations/outcome.h"

namespace kzq {

/// What became of an operation, in one line with all that is known of its failures. `done` is what it does to
/// loops: "saved", "written", "erased".
std::string outcomeLine(std::string_view done, const Outcome& outcome);
/// The same of an update of the firmware.
std::string flashLine(const FlashEnd& end);

}  // namespace kzq
