#include <memory>
#include <utility>

#include "device/kzq7306.h"

namespace kzq {

bool KZQ7306::startBatch(bool complete, std::function<void(KZQ7306&)> batch) {
    if (!claim(complete)) {
        return false;
    }
    setCancel(false);
    environment_.executor.background(Priority::high, [weak = weak_from_this(), batch = std::move(batch)] {
        if (const auto self = weak.lock()) {
            batch(*self);
        }
    });
    return true;
}

bool KZQ7306::claim(bool complete) {
    if (busy()) {
        if (operation() == idle) {  // otherwise the trouble is that of the operation under way
            fail(core() ? Trouble::Kind::busy : Trouble::Kind::noPedal);
        }
        return false;
    }
    if (!complete) {
        return fail(Trouble::Kind::badRequest);
    }
    return !starting_.exchange(true) || fail(Trouble::Kind::busy);
}

std::unique_lock<DeviceLock> KZQ7306::beginOperation(Operation operation) {
    setOperation(operation);
    starting_ = false;
    return std::unique_lock(*lock_);
}

void KZQ7306::transferBatch(Operation operation, std::uint8_t endpoint, std::vector<std::uint8_t> slots,
                            const std::function<bool(std::uint8_t slot)>& transfer,
                            const BatchCompletion& completion, const BatchGate& gate) {
    const auto lock = beginOperation(operation);
    if (gate && !gate()) {
        slots.clear();
    }
    std::uint8_t count = 0;
    for (const auto slot : slots) {
        if (!cancel() && transfer(slot)) {
            ++count;
        }
        if (cancel()) {
            abandonTransfer(endpoint);
            break;
        }
    }
    setOperation(idle);
    completion(count);
}

KZQ7306::TransferProgress KZQ7306::runningTotal(TransferProgress progress) {
    return [this, progress = std::move(progress), total = std::uint32_t{0}](std::uint32_t bytes,
                                                                            std::uint8_t slot) mutable {
        if (!cancel()) {
            total += bytes;
            progress(total, slot);
        }
    };
}

void KZQ7306::abandonTransfer(std::uint8_t endpoint) {
    abortBulkTransfer(endpoint, true);
    ask(wire::abandon);
    setOperation(idle);
}

}  // namespace kzq
