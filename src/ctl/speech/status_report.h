#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "loops/status.h"

namespace kzq::ctl {

/// The pedal's contents as a table for people, line by line.
std::vector<std::string> statusTable(const Status& status);
/// "Firmware 1.05, 5 loops, 22 min 58 s of 24 min free."
std::string statusSummary(const Status& status);
/// What is different in `now`, a line for each slot.
std::vector<std::string> statusChanges(const Loops& before, const Loops& now);

/// "firmware", "loops" (slot, samples, seconds, audioBytes, tempo, channel), "free" and "capacity" (samples,
/// seconds).
nlohmann::json statusJson(const Status& status);

}  // namespace kzq::ctl
