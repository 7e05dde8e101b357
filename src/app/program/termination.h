#pragma once

namespace kzq {

/// From now on a signal to end the program (SIGINT, SIGTERM, SIGHUP) quits it as closing the window does.
/// Once, on the main thread, after the application object.
void quitOnSignals();

}  // namespace kzq
