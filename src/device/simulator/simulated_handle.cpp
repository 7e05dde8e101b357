#include "device/simulator/simulated_handle.h"

#include <utility>

#include "device/wire.h"

namespace kzq::simulator {

using Lock = std::unique_lock<std::mutex>;

SimulatedHandle::SimulatedHandle(std::shared_ptr<SimulatedPort::Host> host,
                                 std::shared_ptr<SimulatedDevice> device)
    : host_(std::move(host)), device_(std::move(device)) {}

SimulatedHandle::~SimulatedHandle() {
    const Lock lock(host_->mutex);
    if (device_->owner == this) {
        device_->owner = nullptr;
    }
    --host_->openHandles;
}

/// Whether the interface can be used; the host's mutex is held.
UsbResult SimulatedHandle::reach(int interface) const {
    if (device_->gone) {
        return usbNoDevice;
    }
    return interface == pedalInterface ? usbSuccess : usbNotFound;
}

/// Whether a bulk transfer on the pipe can start; the host's mutex is held.
UsbResult SimulatedHandle::reachPipe(bool exists) const {
    if (device_->gone) {
        return usbNoDevice;
    }
    if (!exists) {
        return usbNotFound;
    }
    return device_->owner == this ? usbSuccess : usbIo;
}

int SimulatedHandle::kernelDriverActive(int interface) {
    const Lock lock(host_->mutex);
    const UsbResult reached = reach(interface);
    return reached == usbSuccess ? static_cast<int>(host_->kernelDriver) : reached;
}

UsbResult SimulatedHandle::detachKernelDriver(int interface) {
    const Lock lock(host_->mutex);
    const UsbResult reached = reach(interface);
    if (reached != usbSuccess) {
        return reached;
    }
    if (!host_->kernelDriver) {
        return usbNotFound;
    }
    if (host_->detachResult == usbSuccess) {
        host_->kernelDriver = false;
    }
    return host_->detachResult;
}

UsbResult SimulatedHandle::claimInterface(int interface) {
    const Lock lock(host_->mutex);
    const UsbResult reached = reach(interface);
    if (reached != usbSuccess) {
        return reached;
    }
    if (host_->claimResult != usbSuccess) {
        return host_->claimResult;
    }
    if (device_->owner != nullptr && device_->owner != this) {
        return usbBusy;
    }
    device_->owner = this;
    return usbSuccess;
}

UsbResult SimulatedHandle::releaseInterface(int interface) {
    const Lock lock(host_->mutex);
    const UsbResult reached = reach(interface);
    const bool owned = device_->owner == this;
    if (owned && interface == pedalInterface) {
        device_->owner = nullptr;
    }
    if (reached != usbSuccess) {
        return reached;
    }
    return owned ? usbSuccess : usbNotFound;
}

int SimulatedHandle::control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                             std::uint16_t index, std::span<std::uint8_t> reply) {
    {
        const Lock lock(host_->mutex);
        if (device_->gone) {
            return usbNoDevice;
        }
    }
    const SetupPacket setup{requestType, request, value, index, static_cast<std::uint16_t>(reply.size())};
    std::size_t transferred = 0;
    const UsbResult result = carryOut([&] { return host_->pedal.control(setup, reply); }, transferred);
    return result == usbSuccess ? static_cast<int>(transferred) : result;
}

UsbResult SimulatedHandle::bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t /*due*/,
                                  std::size_t& transferred) {
    transferred = 0;
    {
        const Lock lock(host_->mutex);
        const UsbResult reached = reachPipe(endpoint == pedalBulkIn);
        if (reached != usbSuccess) {
            return reached;
        }
    }
    return carryOut([&] { return host_->pedal.bulkIn(into); }, transferred);
}

UsbResult SimulatedHandle::bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                                   std::atomic<std::size_t>& transferred) {
    transferred = 0;
    {
        const Lock lock(host_->mutex);
        const UsbResult reached = reachPipe(endpoint == pedalBulkOut);
        if (reached != usbSuccess) {
            return reached;
        }
    }
    std::size_t taken = 0;
    const UsbResult result = carryOut([&] { return host_->pedal.bulkOut(from); }, taken);
    transferred = taken;
    return result;
}

UsbResult SimulatedHandle::reset() {
    {
        const Lock lock(host_->mutex);
        if (device_->gone) {
            return usbNoDevice;
        }
    }
    host_->pedal.reset();
    return usbSuccess;
}

UsbResult SimulatedHandle::carryOut(const std::function<TransferResult()>& ask, std::size_t& transferred) {
    Lock lock(host_->mutex);
    const std::uint64_t before = host_->interruptions;
    lock.unlock();
    const TransferResult result = ask();
    transferred = result.transferred;
    switch (result.status) {
        case TransferStatus::done:
        case TransferStatus::overrun:
            return usbSuccess;
        case TransferStatus::stalled:
            return usbPipe;
        case TransferStatus::gone:
            return usbNoDevice;
        case TransferStatus::pending:
            break;
    }
    // While one caller has the handle, only a reset or a departure can change the pedal's answer.
    lock.lock();
    host_->executor.wait(lock, host_->changed, [&] { return host_->interruptions != before; });
    return usbNoDevice;
}

}  // namespace kzq::simulator
