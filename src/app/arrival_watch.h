#pragma once

#include "platform/executor.h"

namespace kzq {

/// The link asks an arriving pedal what it is on the main thread; one that falls silent there would hold the
/// window for ever. When such a request has stayed unanswered for three to four seconds of the program's own
/// running time the pedal is reset, and again every three seconds for as long as it lasts. A main thread that
/// is slow for any other reason resets no pedal.
void watchArrivals(Executor& executor);

}  // namespace kzq
