#pragma once

#include <string>

#include "platform/log.h"

namespace kzq {

/// Writes one line about updates to the log.
inline void logUpdates(const std::string& line) {
    log(LogCategory::files, "updates: " + line);
}

}  // namespace kzq
