#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "device/finding.h"
#include "troubleshooting/log_tail.h"
#include "troubleshooting/report.h"

namespace kzq {

/// Has the log kept for a report, from now on; also shown on standard error, or noted, if wanted. `noted`
/// must not log.
void keepLog(const std::shared_ptr<LogTail>& tail, bool shown, std::function<void(std::string_view)> noted);

/// What the doctor finds: of a simulated pedal, nothing. May take seconds.
std::vector<Finding> examined(bool simulate);

/// What this program knows of itself and of the computer. May take seconds.
TroubleReport selfReport(bool simulate, const LogTail& log);

}  // namespace kzq
