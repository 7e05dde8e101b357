#include "app/transfer_run.h"

#include <utility>

namespace kzq {

double TransferRun::fractionOf(std::uint64_t bytes) const {
    return total_ == 0 ? 0 : static_cast<double>(bytes) / static_cast<double>(total_);
}

void TransferRun::batchBegins() {
    before_ += std::exchange(inBatch_, 0);
}

void TransferRun::moved(std::uint64_t bytes) {
    inBatch_ = bytes;
    bar_->newest = fractionOf(before_ + bytes);
    if (!bar_->posted.exchange(true)) {
        post_([bar = bar_] {
            bar->posted = false;
            bar->percent(bar->newest);
        });
    }
}

void TransferRun::loopDone(std::uint64_t bytes, Executor::Task task) {
    done_ += bytes;
    post_([bar = bar_, fraction = fractionOf(done_), task = std::move(task)] {
        bar->percent(fraction);
        task();
    });
}

}  // namespace kzq
