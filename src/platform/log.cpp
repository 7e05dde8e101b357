#include "platform/log.h"

#include <cstdio>
#include <mutex>
#include <string>
#include <utility>

namespace kzq {

namespace {

struct Sink {
    std::mutex mutex;
    LogSink sink;
};

Sink& current() {
    // Never destroyed: blocked threads may still log while the process ends.
    static auto* const sink = new Sink;  // NOLINT(cppcoreguidelines-owning-memory)
    return *sink;
}

}  // namespace

std::string_view logCategoryName(LogCategory category) {
    switch (category) {
        case LogCategory::device:
            return "device";
        case LogCategory::usb:
            return "usb";
        case LogCategory::simulator:
            return "simulator";
        case LogCategory::audio:
            return "audio";
        case LogCategory::files:
            return "files";
        case LogCategory::tool:
            return "tool";
        case LogCategory::application:
            return "application";
    }
    return "?";
}

void log(LogCategory category, std::string_view line) {
    auto& [mutex, sink] = current();
    const std::lock_guard guard(mutex);
    if (sink) {
        sink(category, line);
        return;
    }
    const auto text = std::string(logCategoryName(category)) + ": " + std::string(line) + "\n";
    std::fputs(text.c_str(), stderr);
}

LogSink setLogSink(LogSink sink) {
    auto& state = current();
    const std::lock_guard guard(state.mutex);
    return std::exchange(state.sink, std::move(sink));
}

}  // namespace kzq
