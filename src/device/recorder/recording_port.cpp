#include "device/recorder/recording_port.h"

#include <atomic>
#include <thread>
#include <utility>

#include "device/recorder/call_words.h"
#include "device/recorder/recording_handle.h"

namespace kzq::recorder {

namespace {

/// A device of the other port, with the number that it has in the recording.
struct RecordedDevice : UsbDevice {
    RecordedDevice(UsbDevicePointer theDevice, unsigned theNumber)
        : device(std::move(theDevice)), number(theNumber) {}

    UsbDevicePointer device;
    unsigned number;
};

}  // namespace

UsbResult RecordingPort::initialize() {
    const unsigned call = recorder_->begin(words::initialize());
    const UsbResult result = port_.initialize();
    recorder_->end(call, std::to_string(result));
    return result;
}

UsbResult RecordingPort::registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                         HotplugCallback callback) {
    const unsigned call = recorder_->begin(words::registerHotplug(event, filter));
    const auto inside = std::make_shared<std::atomic<bool>>(true);
    const auto registering = std::this_thread::get_id();
    const auto listener = [recorder = recorder_, call, inside, registering, callback = std::move(callback)](
                              const UsbDevicePointer& device, HotplugEvent what) {
        const bool there = *inside && std::this_thread::get_id() == registering;
        const unsigned number = recorder->heard(there                           ? "there"
                                                : what == HotplugEvent::arrived ? "arrived"
                                                                                : "left",
                                                call);
        return callback(std::make_shared<RecordedDevice>(device, number), what);
    };
    const UsbResult result = port_.registerHotplug(event, filter, listener);
    *inside = false;
    recorder_->end(call, std::to_string(result));
    return result;
}

std::unique_ptr<UsbHandle> RecordingPort::open(const UsbDevicePointer& device, UsbResult& result) {
    const auto* const recorded = dynamic_cast<const RecordedDevice*>(device.get());
    const unsigned call = recorder_->begin(words::open(recorded != nullptr ? recorded->number : 0));
    auto handle = port_.open(recorded != nullptr ? recorded->device : device, result);
    return opened(call, std::move(handle), result);
}

std::unique_ptr<UsbHandle> RecordingPort::open(std::uint16_t vendor, std::uint16_t product,
                                               UsbResult& result) {
    const unsigned call = recorder_->begin(words::find(vendor, product));
    auto handle = port_.open(vendor, product, result);
    return opened(call, std::move(handle), result);
}

std::unique_ptr<UsbHandle> RecordingPort::opened(unsigned call, std::unique_ptr<UsbHandle> handle,
                                                 UsbResult result) {
    recorder_->end(call, std::to_string(result));
    return handle ? std::make_unique<RecordingHandle>(std::move(handle), call, recorder_) : nullptr;
}

}  // namespace kzq::recorder
