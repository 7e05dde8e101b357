#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/result.h"

namespace kzq {

/// Starts `program` with --self-check and waits for its end. What it printed, without the line's end; or, as
/// `where`, why it cannot be used. Blocks, at most `limit`; a worker thread.
Result<std::string> selfCheck(const std::filesystem::path& program,
                              std::chrono::milliseconds limit = std::chrono::seconds(60));

/// What a version prints about itself when it has started.
std::string selfCheckLine(std::string_view version);
/// Whether `line` is what `version` prints; versions are compared as versions: 1.4 is 1.4.0.
bool saysVersion(std::string_view line, std::string_view version);

}  // namespace kzq
