#include "device/recorder/recording_handle.h"

#include <algorithm>

#include "device/recorder/call_words.h"
#include "device/wire.h"

namespace kzq::recorder {

RecordingHandle::~RecordingHandle() {
    const unsigned call = recorder_->begin(words::close(number_));
    handle_.reset();
    recorder_->end(call, std::to_string(usbSuccess));
}

int RecordingHandle::kernelDriverActive(int interface) {
    const unsigned call = recorder_->begin(words::onInterface("driver", number_, interface));
    const int result = handle_->kernelDriverActive(interface);
    recorder_->end(call, std::to_string(result));
    return result;
}

UsbResult RecordingHandle::detachKernelDriver(int interface) {
    return recorded(words::onInterface("detach", number_, interface),
                    [&] { return handle_->detachKernelDriver(interface); });
}

UsbResult RecordingHandle::claimInterface(int interface) {
    return recorded(words::onInterface("claim", number_, interface),
                    [&] { return handle_->claimInterface(interface); });
}

UsbResult RecordingHandle::releaseInterface(int interface) {
    return recorded(words::onInterface("release", number_, interface),
                    [&] { return handle_->releaseInterface(interface); });
}

int RecordingHandle::control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                             std::uint16_t index, std::span<std::uint8_t> reply) {
    if (const auto* const command = wire::find(requestType)) {
        recorder_->note(command->name);
    }
    const unsigned call =
        recorder_->begin(words::control(number_, requestType, request, value, index, reply.size()));
    const int result = handle_->control(requestType, request, value, index, reply);
    recorder_->end(call, std::to_string(result) + " " + hexText(reply));
    return result;
}

UsbResult RecordingHandle::bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                                  std::size_t& transferred) {
    const unsigned call = recorder_->begin(words::bulkIn(number_, endpoint, into.size()));
    const UsbResult result = handle_->bulkIn(endpoint, into, due, transferred);
    recorder_->end(call, std::to_string(result) + " " + std::to_string(transferred) + " " +
                             hexText(into.first(std::min(transferred, into.size()))));
    return result;
}

UsbResult RecordingHandle::bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                                   std::atomic<std::size_t>& transferred) {
    const unsigned call = recorder_->begin(words::bulkOut(number_, endpoint, from));
    const UsbResult result = handle_->bulkOut(endpoint, from, transferred);
    recorder_->end(call, std::to_string(result) + " " + std::to_string(transferred));
    return result;
}

UsbResult RecordingHandle::reset() {
    return recorded(words::reset(number_), [&] { return handle_->reset(); });
}

UsbResult RecordingHandle::recorded(const std::string& words, const std::function<UsbResult()>& call) {
    const unsigned number = recorder_->begin(words);
    const UsbResult result = call();
    recorder_->end(number, std::to_string(result));
    return result;
}

}  // namespace kzq::recorder
