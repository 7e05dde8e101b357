#include "device/whole_status.h"

#include <mutex>

#include "device/kzq7306.h"

namespace kzq {

std::optional<Status> wholeStatus(KZQ7306& looper) {
    constexpr int tries = 3;
    const std::lock_guard guard(looper.lock());
    for (int i = 0; i < tries; ++i) {
        auto status = looper.status(true);
        if (status && status->loops.complete) {
            return status;
        }
    }
    return std::nullopt;
}

}  // namespace kzq
