#pragma once

#include <functional>

#include "platform/executor.h"

namespace kzq {

/// Frees a main thread that is stuck: a pedal that falls silent while it is asked what it is, on its arrival,
/// would hold the window for ever. Once the main thread has not answered for three seconds of the program's
/// own running time, `free` is called on a thread of its own, and again every three seconds for as long as it
/// lasts.
void watchMainThread(Executor& executor, std::function<void()> free);

/// What frees it from the pedal: ends the transfer that hangs, unless the one under way is a worker's.
void freeFromPedal();

}  // namespace kzq
