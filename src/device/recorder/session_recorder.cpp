#include "device/recorder/session_recorder.h"

#include <algorithm>

namespace kzq::recorder {

unsigned SessionRecorder::begin(std::string_view words) {
    const std::lock_guard lock(mutex_);
    write(std::to_string(++calls_) + " " + std::string(words));
    return calls_;
}

void SessionRecorder::end(unsigned call, std::string_view result) {
    const std::lock_guard lock(mutex_);
    write(std::to_string(call) + " = " + std::string(result));
}

unsigned SessionRecorder::heard(std::string_view event, unsigned registration) {
    const std::lock_guard lock(mutex_);
    write(std::string(event) + " " + std::to_string(++devices_) + " " + std::to_string(registration));
    return devices_;
}

void SessionRecorder::note(std::string_view text) {
    std::string line = "# " + std::string(text);
    std::ranges::replace_if(
        line, [](char c) { return c >= '\0' && c < ' '; }, '?');
    const std::lock_guard lock(mutex_);
    file_->write(line);
}

void SessionRecorder::write(const std::string& event) {
    const auto since =
        std::chrono::duration_cast<std::chrono::microseconds>(executor_.now() - start_).count();
    file_->write(std::to_string(since) + " " + event);
}

}  // namespace kzq::recorder
