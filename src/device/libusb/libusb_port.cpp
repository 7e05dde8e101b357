#include "device/libusb/libusb_port.h"

#include <libusb.h>

#include <filesystem>
#include <future>
#include <mutex>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "device/libusb/awaited_pedals.h"
#include "device/libusb/device_node.h"
#include "device/libusb/event_turns.h"
#include "device/libusb/hotplug_registry.h"
#include "device/libusb/libusb_device.h"
#include "device/libusb/libusb_handle.h"
#include "device/libusb/libusb_result.h"
#include "device/wire.h"
#include "platform/log.h"

namespace kzq {

namespace {

void logWithoutEvents() {
    std::error_code ignored;
    if (libusb_has_capability(LIBUSB_CAP_HAS_HOTPLUG) == 0) {
        log(LogCategory::usb,
            "this libusb has no hot-plug support: pedals plugged in or out will not be noticed");
    } else if (!std::filesystem::exists("/run/udev/control", ignored)) {
        log(LogCategory::usb, "udev is not running: pedals plugged in or out later may not be noticed");
    }
}

std::string nameOf(libusb_device* device) {
    return "opening device " + std::to_string(libusb_get_bus_number(device)) + ":" +
           std::to_string(libusb_get_device_address(device));
}

/// A program that was killed in the middle of a request on the way around leaves its driver there.
void takeBackFromRoad(const DeviceNode& node) {
    if (node.driver(pedalInterface) == roadDriver) {
        log(LogCategory::usb, "the interface is taken back from usbtmc");
        node.unbindDriver(pedalInterface);
    }
}

std::unique_ptr<UsbHandle> openDevice(libusb_device* device, unsigned readsInFlight, UsbResult& result) {
    DeviceNode node(device);  // without it, libusb says why
    auto port = PortLock::take(device);
    if (!port || (node && !node.lock())) {
        log(LogCategory::usb, nameOf(device) + ": another of our programs has it, or waits for it");
        result = usbBusy;
        return nullptr;
    }
    libusb_device_handle* handle = nullptr;
    result = logged(nameOf(device), libusb_open(device, &handle));
    if (result != usbSuccess) {
        return nullptr;
    }
    if (!node) {  // access came between the two
        libusb_close(handle);
        result = usbAccess;
        return nullptr;
    }
    takeBackFromRoad(node);
    return std::make_unique<LibusbHandle>(handle, std::move(node), std::move(*port), readsInFlight);
}

bool isMatching(libusb_device* device, std::uint16_t vendor, std::uint16_t product) {
    libusb_device_descriptor descriptor{};
    return libusb_get_device_descriptor(device, &descriptor) == LIBUSB_SUCCESS &&
           descriptor.idVendor == vendor && descriptor.idProduct == product;
}

}  // namespace

struct LibusbPort::Hotplug {
    std::mutex mutex;
    std::vector<HotplugTicket> tickets;
    std::once_flag checked;
};

LibusbPort::LibusbPort(unsigned readsInFlight)
    : readsInFlight_(readsInFlight), hotplug_(std::make_unique<Hotplug>()) {}

LibusbPort::~LibusbPort() {
    for (const HotplugTicket ticket : hotplug_->tickets) {
        removeHotplug(ticket);
    }
}

UsbResult LibusbPort::initialize() {
    started_ = logged("starting libusb", libusb_init(nullptr));
    return started_;
}

UsbResult LibusbPort::registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                      HotplugCallback callback) {
    if (started_ != usbSuccess) {
        return started_;
    }
    std::call_once(hotplug_->checked, logWithoutEvents);
    UsbResult result = usbSuccess;
    const HotplugTicket ticket = addHotplug(event, filter, std::move(callback), result);
    if (ticket == 0) {
        return result;
    }
    const std::lock_guard lock(hotplug_->mutex);
    hotplug_->tickets.push_back(ticket);
    return result;
}

UsbResult LibusbPort::handleEvents() {
    if (started_ != usbSuccess) {
        std::promise<void>().get_future().wait();  // forever: without libusb there are no events
    }
    constexpr timeval untilLook{0, 250'000};
    constexpr timeval untilNext{60, 0};
    auto longest = isAnyAwaited() ? untilLook : untilNext;
    const auto result = leftToMovingThread()
                            ? usbSuccess
                            : static_cast<UsbResult>(libusb_handle_events_timeout(nullptr, &longest));
    announceFreed();
    return result;
}

std::unique_ptr<UsbHandle> LibusbPort::open(const UsbDevicePointer& device, UsbResult& result) {
    const auto known = std::dynamic_pointer_cast<LibusbDevice>(device);
    if (known == nullptr) {
        result = usbInvalid;
        return nullptr;
    }
    auto handle = openDevice(known->get(), readsInFlight_, result);
    if (handle) {
        stopAwaiting(*known);
    } else if (result == usbAccess || result == usbBusy) {
        await(known);
    }
    return handle;
}

// Like libusb_open_device_with_vid_pid, but with the reason if it fails.
std::unique_ptr<UsbHandle> LibusbPort::open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) {
    if (started_ != usbSuccess) {
        result = started_;
        return nullptr;
    }
    libusb_device** list = nullptr;
    const auto count = libusb_get_device_list(nullptr, &list);
    result = count < 0 ? logged("listing devices", static_cast<int>(count)) : usbNoDevice;
    if (count < 0) {
        return nullptr;
    }
    std::unique_ptr<UsbHandle> handle;
    for (libusb_device* const device : std::span(list, static_cast<std::size_t>(count))) {
        if (!isMatching(device, vendor, product)) {
            continue;
        }
        handle = openDevice(device, readsInFlight_, result);
        break;
    }
    libusb_free_device_list(list, 1);
    return handle;
}

}  // namespace kzq
