#pragma once

#include <functional>

#include "platform/executor.h"

namespace kzq {

/// From now on a signal to end the program (SIGINT, SIGTERM, SIGHUP) quits it as closing the window does, and
/// then calls `late` on a thread of its own: the main thread may be stuck. Once, on the main thread, after
/// the application object; the executor outlives it.
void quitOnSignals(Executor& executor, std::function<void()> late);

}  // namespace kzq
