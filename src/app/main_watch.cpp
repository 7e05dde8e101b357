#include "app/main_watch.h"

#include <atomic>
#include <memory>
#include <utility>

#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto nap = std::chrono::seconds(1);
constexpr unsigned patience = 3;  // naps; counted singly, because a suspended process may oversleep one

struct Watch {
    std::atomic<bool> answered = true;
    unsigned missed = 0;
};

}  // namespace

void watchMainThread(Executor& executor, std::function<void()> free) {
    executor.service("com.kzq.main-watch",
                     [&executor, free = std::move(free), watch = std::make_shared<Watch>()] {
                         if (watch->answered.exchange(false)) {
                             watch->missed = 0;
                             executor.main([watch] { watch->answered = true; });
                         } else if (++watch->missed == patience) {
                             watch->missed = 0;
                             free();
                         }
                         executor.sleep(nap);
                     });
}

void freeFromPedal() {
    const auto looper = KZQ7306::looper();
    // While an operation runs, its worker talks to the pedal and the main thread hangs for another reason,
    // except when the pedal is due back from its restart into the loader.
    if (looper && (looper->operation() == KZQ7306::idle || looper->flashPending())) {
        log(LogCategory::application, "the pedal does not answer; resetting it");
        looper->interrupt();
    }
}

}  // namespace kzq
