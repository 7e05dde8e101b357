#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include "device/kzq7306.h"

namespace kzq {

/// State of the class rather than of its one instance. Internal to the device link.
struct ClassState {
    std::mutex mutex;  ///< guards the members; held only briefly
    std::optional<DeviceEnvironment> environment;
    std::shared_ptr<DeviceLock> lock;
    std::shared_ptr<KZQ7306> shared;

    std::optional<DeviceEnvironment> getEnvironment() {
        const std::lock_guard guard(mutex);
        return environment;
    }
    std::shared_ptr<DeviceLock> getLock() {
        const std::lock_guard guard(mutex);
        return lock;
    }
};

ClassState& classState();

}  // namespace kzq
