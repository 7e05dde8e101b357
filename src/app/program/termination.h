#pragma once

#include <functional>

#include "platform/executor.h"

namespace kzq {

/// From now on SIGINT, SIGTERM and SIGHUP quit the program as closing the window does, and then call `late`
/// on a thread of its own, because the main thread may hang. Called once, on the main thread, after the
/// application object was created; the executor outlives it.
void quitOnSignals(Executor& executor, std::function<void()> late);

}  // namespace kzq
