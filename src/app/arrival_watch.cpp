#include "app/arrival_watch.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto nap = std::chrono::seconds(1);
constexpr unsigned patience = 3;  // naps; counted one by one, since a stopped process may oversleep one

struct Watch {
    std::uint64_t request = 0;
    unsigned naps = 0;

    /// Whether it has been out for too long.
    bool notices(std::uint64_t now) {
        naps = now != 0 && now == std::exchange(request, now) ? naps + 1 : 0;
        return naps != 0 && naps % patience == 0;
    }
};

}  // namespace

void watchArrivals(Executor& executor) {
    executor.service("com.kzq.arrival-watch", [&executor, watch = std::make_shared<Watch>()] {
        const auto looper = KZQ7306::looper();
        if (looper && watch->notices(looper->arriving() ? looper->callUnderWay() : 0)) {
            log(LogCategory::application, "the pedal does not answer: it is reset");
            looper->interrupt();
        }
        executor.sleep(nap);
    });
}

}  // namespace kzq
