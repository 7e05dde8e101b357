#include "device/libusb/hotplug_registry.h"

#include <libusb.h>

#include <map>
#include <mutex>
#include <utility>

#include "device/libusb/libusb_device.h"
#include "device/libusb/libusb_result.h"

namespace kzq {

namespace {

struct Registry {
    std::mutex mutex;  ///< held while a callback runs
    HotplugTicket last = 0;
    std::map<HotplugTicket, HotplugCallback> callbacks;
};

// Never destroyed: the thread that handles events outlives main().
Registry& registry() {
    static auto& instance = *new Registry;
    return instance;
}

int LIBUSB_CALL deliver(libusb_context* /*context*/, libusb_device* device, libusb_hotplug_event event,
                        void* ticket) {
    constexpr int unregister = 1;
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    const auto found = all.callbacks.find(reinterpret_cast<HotplugTicket>(ticket));
    if (found == all.callbacks.end()) {
        return unregister;
    }
    return found->second(std::make_shared<LibusbDevice>(device), event == LIBUSB_HOTPLUG_EVENT_DEVICE_ARRIVED
                                                                     ? HotplugEvent::arrived
                                                                     : HotplugEvent::left);
}

}  // namespace

HotplugTicket addHotplug(HotplugEvent event, const HotplugFilter& filter, HotplugCallback callback,
                         UsbResult& result) {
    HotplugTicket ticket = 0;
    {
        Registry& all = registry();
        const std::lock_guard lock(all.mutex);
        ticket = ++all.last;
        all.callbacks.emplace(ticket, std::move(callback));
    }
    // A number passed through C; it is never dereferenced.
    auto* const userData = reinterpret_cast<void*>(ticket);  // NOLINT(performance-no-int-to-ptr)
    // Without the mutex: devices that are already there are announced before this call returns.
    const int registered = libusb_hotplug_register_callback(
        nullptr,
        event == HotplugEvent::arrived ? LIBUSB_HOTPLUG_EVENT_DEVICE_ARRIVED
                                       : LIBUSB_HOTPLUG_EVENT_DEVICE_LEFT,
        filter.enumerate ? LIBUSB_HOTPLUG_ENUMERATE : 0, filter.vendor, filter.product,
        filter.deviceClass == HotplugFilter::anyClass ? LIBUSB_HOTPLUG_MATCH_ANY : filter.deviceClass,
        deliver, userData, nullptr);
    result = logged("registering for hot-plug", registered);
    if (result == usbSuccess) {
        return ticket;
    }
    removeHotplug(ticket);
    return 0;
}

void removeHotplug(HotplugTicket ticket) {
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    all.callbacks.erase(ticket);
}

}  // namespace kzq
