#include "device/libusb/awaited_pedals.h"

#include <libusb.h>

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <utility>
#include <vector>

#include "device/libusb/device_node.h"
#include "device/libusb/hotplug_registry.h"
#include "device/libusb/libusb_device.h"
#include "device/libusb/port_lock.h"
#include "device/wire.h"

namespace kzq {

namespace {

using Pedals = std::vector<std::shared_ptr<LibusbDevice>>;

struct Awaited {
    std::mutex mutex;
    Pedals pedals;
};

// Never destroyed: the thread that handles events outlives main().
Awaited& awaited() {
    static auto& instance = *new Awaited;
    return instance;
}

enum class Look { taken, free, gone };

Look lookAt(const LibusbDevice& device) {
    DeviceNode node(device.get());
    if (!node) {
        return node.error() == ENOENT || node.error() == ENODEV ? Look::gone : Look::taken;
    }
    if (const auto port = PortLock::take(device.get()); !port || !node.lock()) {
        return Look::taken;
    }
    const auto driver = node.driver(pedalInterface);
    if (!driver) {
        return Look::gone;
    }
    return *driver == programDriver ? Look::taken : Look::free;
}

}  // namespace

void await(std::shared_ptr<LibusbDevice> device) {
    stopAwaiting(*device);
    {
        const std::lock_guard lock(awaited().mutex);
        awaited().pedals.push_back(std::move(device));
    }
    libusb_interrupt_event_handler(nullptr);  // which from now on looks
}

void stopAwaiting(const LibusbDevice& device) {
    const std::lock_guard lock(awaited().mutex);
    std::erase_if(awaited().pedals, [&device](const auto& known) { return known->get() == device.get(); });
}

bool isAnyAwaited() {
    const std::lock_guard lock(awaited().mutex);
    return !awaited().pedals.empty();
}

void announceFreed() {
    Pedals freed;
    {
        const std::lock_guard lock(awaited().mutex);
        std::erase_if(awaited().pedals, [&freed](const auto& pedal) {
            const auto look = lookAt(*pedal);
            if (look == Look::free) {
                freed.push_back(pedal);
            }
            return look != Look::taken;
        });
    }
    for (const auto& pedal : freed) {
        announce(pedal, HotplugEvent::arrived);
    }
}

}  // namespace kzq
