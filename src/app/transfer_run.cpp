#include "app/transfer_run.h"

#include <atomic>
#include <utility>

namespace kzq {

namespace {

constexpr std::chrono::milliseconds betweenFractions(33);
constexpr double none = -1;

}  // namespace

struct TransferRun::Bar {
    Executor& executor;
    const std::function<void(Executor::Task)> post;
    const std::function<void(double)> percent;
    std::atomic<double> newest = none;   ///< that has not been delivered
    std::atomic<bool> underWay = false;  ///< `show` is queued, or waits until it may deliver again
};

TransferRun::TransferRun(Executor& executor, std::function<void(Executor::Task)> post, std::uint64_t total,
                         std::function<void(double fraction)> percent)
    : total_(total), bar_(new Bar{executor, std::move(post), std::move(percent)}) {}

void TransferRun::deliver(const std::shared_ptr<Bar>& bar) {
    if (!bar->underWay.exchange(true)) {
        bar->post([bar] { show(bar); });
    }
}

/// On the main thread, again and again until nothing has moved any more.
void TransferRun::show(const std::shared_ptr<Bar>& bar) {
    if (const auto fraction = bar->newest.exchange(none); fraction != none) {
        bar->percent(fraction);
        bar->executor.mainAfter(betweenFractions, [bar] { bar->post([bar] { show(bar); }); });
        return;
    }
    bar->underWay = false;
    if (bar->newest != none) {  // moved after the look at it
        deliver(bar);
    }
}

double TransferRun::fractionOf(std::uint64_t bytes) const {
    return total_ == 0 ? 0 : static_cast<double>(bytes) / static_cast<double>(total_);
}

void TransferRun::batchBegins() {
    before_ += std::exchange(inBatch_, 0);
}

void TransferRun::moved(std::uint64_t bytes) {
    inBatch_ = bytes;
    bar_->newest = fractionOf(before_ + bytes);
    deliver(bar_);
}

void TransferRun::loopDone(std::uint64_t bytes, Executor::Task task) {
    done_ += bytes;
    bar_->newest = none;  // or it would come after this one
    bar_->post([bar = bar_, fraction = fractionOf(done_), task = std::move(task)] {
        bar->percent(fraction);
        task();
    });
}

}  // namespace kzq
