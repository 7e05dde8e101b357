#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/executor.h"

namespace kzq {

/// `prefix` followed by `string`; nothing if there is no prefix.
std::optional<std::string> stringByPrependingString(const std::string& string,
                                                    const std::optional<std::string>& prefix);

/// Creates the folder and its missing parents. True if it exists afterwards; false for an empty path.
bool createDirectoryAtPath(const std::filesystem::path& path);

/// A timer that runs by itself; the handle is for ending it early. Main thread.
class ScheduledTimer {
  public:
    void invalidate() { valid_ = false; }
    bool isValid() const { return valid_; }

  private:
    friend std::shared_ptr<ScheduledTimer> scheduledTimer(Executor& executor, double interval,
                                                          const std::function<void()>& action, bool repeats);
    bool valid_ = true;
};

/// Runs `action` on the main thread after `interval` seconds, repeatedly if `repeats`. Null if there is no
/// action.
std::shared_ptr<ScheduledTimer> scheduledTimer(Executor& executor, double interval,
                                               const std::function<void()>& action, bool repeats = false);

}  // namespace kzq
