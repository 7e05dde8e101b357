#include <utility>

#include "device/kzq7306.h"

namespace kzq {

namespace {

/// What the pedal needs to erase a loop.
constexpr auto erasePause = std::chrono::milliseconds(25);

}  // namespace

bool KZQ7306::eraseLoop(std::uint8_t slot) {
    const auto known = SlotNumber::of(slot);
    if (!known) {
        return fail(Trouble::Kind::badRequest);
    }
    const std::lock_guard guard(*lock_);
    setTrouble(std::nullopt);
    if (!ask(wire::eraseLoop, known->address().wire()).accepted) {
        return false;
    }
    environment_.executor.sleep(erasePause);
    return true;
}

bool KZQ7306::eraseLoops(std::vector<std::uint8_t> slots, BatchCompletion completion, BatchGate gate) {
    const bool complete = !slots.empty() && completion;
    return startBatch(complete,
                      [slots = std::move(slots), completion = std::move(completion),
                       gate = std::move(gate)](KZQ7306& self) { self.eraseBatch(slots, completion, gate); });
}

/// Ends in one of two ways that differ on purpose. If cancelled, it sends `abandon` (without a reset) and the
/// link is idle before the completion; otherwise the completion runs first, and the link is idle only once
/// the lock is free.
void KZQ7306::eraseBatch(std::vector<std::uint8_t> slots, const BatchCompletion& completion,
                         const BatchGate& gate) {
    auto lock = beginOperation(importingOrErasing);
    if (gate && !gate()) {
        slots.clear();
    }
    std::uint8_t count = 0;
    for (const auto slot : slots) {
        if (!cancel() && eraseLoop(slot)) {
            ++count;
        }
        if (cancel()) {
            ask(wire::abandon);
            setOperation(idle);
            completion(count);
            return;
        }
    }
    completion(count);
    lock.unlock();
    setOperation(idle);
}

}  // namespace kzq
