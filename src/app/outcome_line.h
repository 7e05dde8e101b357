#pragma once

#include <string>
#include <string_view>

#include "operations/outcome.h"

namespace kzq {

/// What became of an operation, in one line with all that is known of its failures. `done` is what it does to
/// loops: "saved", "written", "erased".
std::string outcomeLine(std::string_view done, const Outcome& outcome);

}  // namespace kzq
