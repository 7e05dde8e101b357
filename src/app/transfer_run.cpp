#include "app/transfer_run.h"

#include <utility>

namespace kzq {

TransferRun::TransferRun(Executor& executor, std::uint64_t total, Listener listener)
    : executor_(executor), total_(total), window_(std::make_shared<Window>()) {
    window_->listener = std::move(listener);
}

double TransferRun::fractionOf(std::uint64_t bytes) const {
    return total_ == 0 ? 0 : static_cast<double>(bytes) / static_cast<double>(total_);
}

void TransferRun::moved(std::uint64_t bytes) {
    window_->newest = fractionOf(bytes);
    if (!window_->posted.exchange(true)) {
        executor_.main([window = window_] {
            window->posted = false;
            window->listener.percent(window->newest);
        });
    }
}

void TransferRun::loopDone(std::uint8_t slot) {
    executor_.main([window = window_, fraction = fractionOf(done_), slot] {
        window->listener.percent(fraction);
        window->listener.loopDone(slot);
    });
}

void TransferRun::finished() {
    executor_.main([window = window_] { window->listener.finished(); });
}

}  // namespace kzq
