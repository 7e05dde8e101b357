#include "device/silence.h"

#include <utility>

#include "device/kzq7306.h"

namespace kzq {

namespace {

constexpr Executor::Duration nap = std::chrono::milliseconds(250);

struct Naps {
    std::uint64_t call = 0;
    Executor::Duration slept{};  ///< while the same call was out

    /// Whether the call that is out now has just been silent for another `limit`.
    bool reach(Executor::Duration limit, const KZQ7306& link) {
        const auto now = link.callUnderWay();
        slept = now != 0 && now == std::exchange(call, now) ? slept + nap : Executor::Duration::zero();
        const auto silent = slept - link.callAllowance();
        return silent >= limit && silent % limit < nap;
    }
};

}  // namespace

SilenceWatch::SilenceWatch(Executor& executor, const std::shared_ptr<const KZQ7306>& link,
                           Executor::Duration limit, std::function<void()> silent) {
    if (limit <= Executor::Duration::zero()) {
        return;
    }
    executor.background(
        Priority::standard, [&executor, link = std::weak_ptr(link), limit, silent = std::move(silent),
                             over = over_, naps = Naps{}]() mutable {
            while (!*over) {
                if (const auto watched = link.lock(); watched && naps.reach(limit, *watched)) {
                    silent();
                }
                executor.sleep(nap);
            }
        });
}

SilenceWatch::~SilenceWatch() {
    *over_ = true;
}

}  // namespace kzq
