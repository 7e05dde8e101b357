#pragma once

#include <memory>

namespace kzq {

class LibusbDevice;

// Pedals that are there but could not be had: another program has them, or the user may not open them. Once
// that is over they are announced again, as arrivals. Any thread.

void await(std::shared_ptr<LibusbDevice> device);
/// It has been opened, so nobody waits for it.
void stopAwaiting(const LibusbDevice& device);
bool isAnyAwaited();
/// Looks at each, and announces those that can now be had. Not inside a hot-plug callback.
void announceFreed();

}  // namespace kzq
