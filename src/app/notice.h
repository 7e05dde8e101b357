#pragma once

#include <memory>
#include <string>

#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

struct AppEnvironment;

/// A notification of the desktop when something long has ended while the user looks at another program. It
/// says what the status line says. Main thread.
class Notice : Fixed {
  public:
    /// Shorter than this, the user has waited for it.
    static constexpr std::chrono::seconds longAfter{10};

    /// `environment` outlives it.
    explicit Notice(const AppEnvironment& environment) : environment_(environment) {}

    /// What has come of something, in words.
    void told(const std::string& sentence);
    /// Something has ended that took so long. What is told in the same turn of the main loop, before or
    /// after, is what came of it.
    void ended(Executor::Duration took);

  private:
    void lookSoon();
    void show();

    const AppEnvironment& environment_;
    std::string told_;
    bool ended_ = false;
    std::shared_ptr<int> look_;  ///< while one is queued
};

}  // namespace kzq
