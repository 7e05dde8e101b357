#pragma once

#include <functional>
#include <string_view>

namespace kzq {

/// What a line of the log is about.
enum class LogCategory { device, usb, simulator, audio, files, tool, application };

std::string_view logCategoryName(LogCategory category);

/// Receives one line, without a newline. Called on the logging thread, one call at a time.
using LogSink = std::function<void(LogCategory category, std::string_view line)>;

/// Writes one line to the sink; to standard error, as "category: line", if none is set. Any thread.
void log(LogCategory category, std::string_view line);

/// Sends the log to `sink` from now on, or to standard error again if `sink` is empty.
/// Returns the sink that was set before. Any thread.
LogSink setLogSink(LogSink sink);

}  // namespace kzq
