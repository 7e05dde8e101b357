#include "device/simulator/simulated_port.h"

#include <algorithm>
#include <utility>

#include "device/simulator/simulated_handle.h"
#include "device/simulator/simulated_host.h"
#include "device/wire.h"

namespace kzq::simulator {

namespace {

bool matches(const HotplugFilter& filter) {
    constexpr int classByInterface = 0;
    return filter.vendor == pedalVendor && filter.product == pedalProduct &&
           (filter.deviceClass == HotplugFilter::anyClass || filter.deviceClass == classByInterface);
}

}  // namespace

void SimulatedPort::Host::hear(BusChange change) {
    const Lock lock(mutex);
    if (change != BusChange::arrived) {
        ++interruptions;
    }
    if (change == BusChange::arrived) {
        device = std::make_shared<SimulatedDevice>();
        changes.push_back({device, HotplugEvent::arrived, ++lastChange});
    }
    if (change == BusChange::left && device) {
        device->gone = true;
        changes.push_back({std::exchange(device, nullptr), HotplugEvent::left, ++lastChange});
    }
    changed.notify();
}

SimulatedPort::SimulatedPort(Executor& executor, SimulatedPedal& pedal)
    : host_(std::make_shared<Host>(executor, pedal)) {
    pedal.setListener([host = host_](BusChange change) { host->hear(change); });
    if (pedal.isPlugged()) {
        host_->device = std::make_shared<SimulatedDevice>();
    }
}

SimulatedPort::~SimulatedPort() {
    host_->pedal.setListener({});
}

UsbResult SimulatedPort::initialize() {
    return usbSuccess;
}

UsbResult SimulatedPort::registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                         HotplugCallback callback) {
    if (!callback) {
        return usbInvalid;
    }
    if (!matches(filter)) {
        return usbSuccess;
    }
    UsbDevicePointer present;
    std::uint64_t heardOf = 0;
    {
        const Host::Lock lock(host_->mutex);
        if (event == HotplugEvent::arrived && filter.enumerate) {
            present = host_->device;
        }
        heardOf = host_->lastChange;
    }
    if (present && callback(present, event) != 0) {
        return usbSuccess;
    }
    const Host::Lock lock(host_->mutex);
    host_->registrations.push_back({event, heardOf, std::move(callback)});
    return usbSuccess;
}

UsbResult SimulatedPort::handleEvents() {
    const std::shared_ptr<Host> host = host_;
    Host::Lock lock(host->mutex);
    host->executor.wait(lock, host->changed, [&host] { return !host->changes.empty(); });
    const Host::Change change = std::move(host->changes.front());
    host->changes.pop_front();
    std::vector<Host::Registration> staying = std::exchange(host->registrations, {});
    lock.unlock();

    std::erase_if(staying, [&change](const Host::Registration& registration) {
        if (registration.event != change.event || registration.heardOf >= change.number) {
            return false;
        }
        return registration.callback(change.device, change.event) != 0;
    });

    lock.lock();
    host->registrations.insert(host->registrations.begin(), std::make_move_iterator(staying.begin()),
                               std::make_move_iterator(staying.end()));
    return usbSuccess;
}

std::unique_ptr<UsbHandle> SimulatedPort::open(const UsbDevicePointer& device, UsbResult& result) {
    const Host::Lock lock(host_->mutex);
    auto simulated = std::dynamic_pointer_cast<SimulatedDevice>(device);
    result = host_->openResult;
    if (result == usbSuccess && (!simulated || simulated->gone)) {
        result = usbNoDevice;
    }
    if (result != usbSuccess) {
        return nullptr;
    }
    ++host_->openHandles;
    return std::make_unique<SimulatedHandle>(host_, std::move(simulated));
}

std::unique_ptr<UsbHandle> SimulatedPort::open(std::uint16_t vendor, std::uint16_t product,
                                               UsbResult& result) {
    UsbDevicePointer device;
    if (vendor == pedalVendor && product == pedalProduct) {
        const Host::Lock lock(host_->mutex);
        device = host_->device;
    }
    return open(device, result);
}

void SimulatedPort::setOpenResult(UsbResult result) {
    const Host::Lock lock(host_->mutex);
    host_->openResult = result;
}

void SimulatedPort::setKernelDriver(bool active, UsbResult detachResult) {
    const Host::Lock lock(host_->mutex);
    host_->kernelDriver = active;
    host_->detachResult = detachResult;
}

void SimulatedPort::setClaimResult(UsbResult result) {
    const Host::Lock lock(host_->mutex);
    host_->claimResult = result;
}

int SimulatedPort::openHandles() const {
    const Host::Lock lock(host_->mutex);
    return host_->openHandles;
}

}  // namespace kzq::simulator
