#include "device/libusb/event_turns.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace kzq {

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto pause = std::chrono::milliseconds(20);

std::atomic<Clock::rep> lastPiece = Clock::time_point::min().time_since_epoch().count();

}  // namespace

void pieceMoved() {
    lastPiece = Clock::now().time_since_epoch().count();
}

bool leftToMovingThread() {
    if (Clock::now() - pause >= Clock::time_point(Clock::duration(lastPiece))) {
        return false;
    }
    std::this_thread::sleep_for(pause);
    return true;
}

}  // namespace kzq
