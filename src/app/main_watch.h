#pragma once

#include <functional>

#include "platform/executor.h"

namespace kzq {

/// Frees a hanging main thread: a pedal that stops answering during the queries on its arrival would block
/// the window forever. If the main thread does not respond for three seconds of the program's own running
/// time, `free` is called on a separate thread, and again every three seconds until it responds.
void watchMainThread(Executor& executor, std::function<void()> free);

/// Frees the main thread from the pedal: ends the hanging transfer, unless it is a worker's.
void freeFromPedal();

}  // namespace kzq
