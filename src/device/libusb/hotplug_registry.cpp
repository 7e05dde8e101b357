#include "device/libusb/hotplug_registry.h"

#include <libusb.h>

#include <map>
#include <mutex>
#include <utility>

#include "device/libusb/libusb_device.h"
#include "device/libusb/libusb_result.h"

namespace kzq {

namespace {

struct Registration {
    HotplugEvent event;
    HotplugFilter filter;
    HotplugCallback callback;
};

struct Registry {
    std::mutex mutex;  ///< held while a callback runs
    HotplugTicket last = 0;
    std::map<HotplugTicket, Registration> all;
};

// Never destroyed: the thread that handles events outlives main().
Registry& registry() {
    static auto& instance = *new Registry;
    return instance;
}

int LIBUSB_CALL deliver(libusb_context* /*context*/, libusb_device* device, libusb_hotplug_event event,
                        void* ticket) {
    constexpr int unregister = 1;
    Registry& known = registry();
    const std::lock_guard lock(known.mutex);
    const auto found = known.all.find(reinterpret_cast<HotplugTicket>(ticket));
    if (found == known.all.end()) {
        return unregister;
    }
    return found->second.callback(
        std::make_shared<LibusbDevice>(device),
        event == LIBUSB_HOTPLUG_EVENT_DEVICE_ARRIVED ? HotplugEvent::arrived : HotplugEvent::left);
}

bool concerns(const HotplugFilter& filter, libusb_device* device) {
    libusb_device_descriptor descriptor{};
    return libusb_get_device_descriptor(device, &descriptor) == LIBUSB_SUCCESS &&
           descriptor.idVendor == filter.vendor && descriptor.idProduct == filter.product;
}

}  // namespace

HotplugTicket addHotplug(HotplugEvent event, const HotplugFilter& filter, HotplugCallback callback,
                         UsbResult& result) {
    HotplugTicket ticket = 0;
    {
        Registry& known = registry();
        const std::lock_guard lock(known.mutex);
        ticket = ++known.last;
        known.all.emplace(ticket, Registration{event, filter, std::move(callback)});
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
    Registry& known = registry();
    const std::lock_guard lock(known.mutex);
    known.all.erase(ticket);
}

void announce(const std::shared_ptr<LibusbDevice>& device, HotplugEvent event) {
    Registry& known = registry();
    const std::lock_guard lock(known.mutex);
    std::erase_if(known.all, [&](const auto& entry) {
        const auto& [ticket, registration] = entry;
        return registration.event == event && concerns(registration.filter, device->get()) &&
               registration.callback(device, event) != 0;
    });
}

}  // namespace kzq
