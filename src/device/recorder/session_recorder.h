#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "device/recorder/recording_file.h"
#include "platform/executor.h"

namespace kzq::recorder {

/// Puts what happens at a port into lines, in the order in which it happens. Shared by a port and its
/// handles; any thread.
class SessionRecorder {
  public:
    /// `executor`, whose clock is used, outlives it.
    SessionRecorder(Executor& executor, std::shared_ptr<RecordingFile> file)
        : executor_(executor), start_(executor.now()), file_(std::move(file)) {}

    /// A call begins; its number, from 1.
    unsigned begin(std::string_view words);
    void end(unsigned call, std::string_view result);
    /// A device is heard of, by the registration that was made with the call `registration`. Its number.
    unsigned heard(std::string_view event, unsigned registration);
    /// For human readers.
    void note(std::string_view text);

  private:
    void write(const std::string& event);

    Executor& executor_;
    Executor::TimePoint start_;
    std::shared_ptr<RecordingFile> file_;
    std::mutex mutex_;  ///< so that the lines stand in the order of their numbers and times
    unsigned calls_ = 0;
    unsigned devices_ = 0;
};

}  // namespace kzq::recorder
