#include "ctl/patience.h"

#include <utility>

namespace kzq::ctl {
namespace {

/// A check that comes later than this was kept waiting.
constexpr Executor::Duration latest = std::chrono::milliseconds(500);

}  // namespace

Patience::Patience(Executor& executor, Executor::Duration limit, std::function<void()> lost)
    : executor_(executor), limit_(limit), lost_(std::move(lost)), last_(Executor::Duration::zero()) {}

void Patience::start() {
    touch();
    due_ = last_;
    if (limit_ > Executor::Duration::zero()) {
        check();
    }
}

void Patience::touch() {
    last_ = executor_.now().time_since_epoch();
    suspended_ = false;
}

void Patience::check() {
    if (stopped_) {
        return;
    }
    const auto now = executor_.now().time_since_epoch();
    if (now > due_ + latest) {
        last_ = now;  // the program itself was stopped or kept waiting: the pedal gets its time again
    }
    const auto left = suspended_ ? limit_ : last_.load() + limit_ - now;
    if (left > Executor::Duration::zero()) {
        due_ = now + left;
        executor_.mainAfter(left, [self = shared_from_this()] { self->check(); });
        return;
    }
    stopped_ = true;
    lost_();
}

}  // namespace kzq::ctl
