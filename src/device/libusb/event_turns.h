#pragma once

namespace kzq {

/// Who handles libusb's events while audio moves. A thread that waits for its transfer handles them as well
/// as the thread in `handleEvents`; but if that one was first, every piece is handed from thread to thread,
/// which takes nearly as long as the piece itself. So it leaves them to the thread that moves pieces for as
/// long as one ends every few milliseconds. Any thread may call these.

/// A piece has been moved.
void pieceMoved();

/// Waits 20 ms if a piece was moved within the last 20 ms, and says whether it has waited. A change on the
/// bus that no moving thread has handled is noticed that much later.
bool leftToMovingThread();

}  // namespace kzq
