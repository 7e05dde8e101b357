#include "device/recorder/replay_handle.h"

#include <algorithm>

#include "device/recorder/call_words.h"

namespace kzq::recorder {

namespace {

void copyInto(std::span<std::uint8_t> into, const std::vector<std::uint8_t>& bytes) {
    std::copy_n(bytes.begin(), std::min(into.size(), bytes.size()), into.begin());
}

}  // namespace

int ReplayHandle::kernelDriverActive(int interface) {
    return player_->ask(words::onInterface("driver", number_, interface)).result;
}

UsbResult ReplayHandle::detachKernelDriver(int interface) {
    return ask(words::onInterface("detach", number_, interface));
}

UsbResult ReplayHandle::claimInterface(int interface) {
    return ask(words::onInterface("claim", number_, interface));
}

UsbResult ReplayHandle::releaseInterface(int interface) {
    return ask(words::onInterface("release", number_, interface));
}

int ReplayHandle::control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                          std::uint16_t index, std::span<std::uint8_t> reply) {
    const auto event =
        player_->ask(words::control(number_, requestType, request, value, index, reply.size()));
    copyInto(reply, event.bytes);
    return event.result;
}

UsbResult ReplayHandle::bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t /*due*/,
                               std::size_t& transferred) {
    const auto event = player_->ask(words::bulkIn(number_, endpoint, into.size()));
    copyInto(into, event.bytes);
    transferred = event.transferred;
    return static_cast<UsbResult>(event.result);
}

UsbResult ReplayHandle::bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                                std::atomic<std::size_t>& transferred) {
    const auto event = player_->ask(words::bulkOut(number_, endpoint, from));
    transferred = event.transferred;
    return static_cast<UsbResult>(event.result);
}

UsbResult ReplayHandle::reset() {
    return ask(words::reset(number_));
}

UsbResult ReplayHandle::ask(const std::string& words) {
    return static_cast<UsbResult>(player_->ask(words).result);
}

}  // namespace kzq::recorder
