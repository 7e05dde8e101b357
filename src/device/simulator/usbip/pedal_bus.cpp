#include "device/simulator/usbip/pedal_bus.h"

#include <utility>

#include "device/simulator/usbip/connection.h"
#include "device/simulator/usbip/descriptors.h"
#include "device/wire.h"

namespace kzq::simulator::usbip {

PedalBus::PedalBus(SimulatedPedal& pedal, ArrivalListener arrived)
    : pedal_(pedal), arrived_(std::move(arrived)) {
    pedal_.setListener([this](BusChange change) { hear(change); });
}

PedalBus::~PedalBus() {
    pedal_.setListener({});
}

DeviceRecord PedalBus::record() {
    constexpr std::uint32_t highSpeed = 3;
    return {.path = "/sys/devices/simulated/usb1/1-1",
            .busId = "1-1",
            .bus = 1,
            .device = 2,
            .speed = highSpeed,
            .vendor = pedalVendor,
            .product = pedalProduct,
            .release = pedalRelease,
            .configurationValue = pedalConfiguration,
            .configurations = 1,
            .interfaces = 1};
}

OperationStatus PedalBus::occupy(const std::shared_ptr<Connection>& computer) {
    const std::lock_guard lock(mutex_);
    if (computer_) {
        return OperationStatus::busy;
    }
    if (!pedal_.isPlugged()) {
        return OperationStatus::noDevice;
    }
    computer_ = computer;
    return OperationStatus::ok;
}

void PedalBus::release(const std::shared_ptr<Connection>& computer) {
    const std::lock_guard lock(mutex_);
    if (computer_ == computer) {
        computer_.reset();
    }
}

void PedalBus::hear(BusChange change) {
    if (change == BusChange::arrived && arrived_) {
        arrived_();
    }
    if (change != BusChange::left) {
        return;
    }
    const std::lock_guard lock(mutex_);
    if (computer_) {
        std::exchange(computer_, nullptr)->hangUp();
    }
}

}  // namespace kzq::simulator::usbip
