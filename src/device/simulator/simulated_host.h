#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "device/simulator/simulated_port.h"

namespace kzq::simulator {

/// The pedal on the bus, from one arrival to the next departure.
class SimulatedDevice : public UsbDevice {
  public:
    // Guarded by the host's mutex.
    bool gone = false;
    const UsbHandle* owner = nullptr;  ///< who has claimed the interface
};

/// Shared by the port and its handles: the host system's view of the bus.
struct SimulatedPort::Host {
    using Lock = std::unique_lock<std::mutex>;

    struct Change {
        UsbDevicePointer device;
        HotplugEvent event;
        std::uint64_t number;
    };
    struct Registration {
        HotplugEvent event;
        std::uint64_t heardOf;  ///< number of the last change before the registration
        HotplugCallback callback;
    };

    Host(Executor& theExecutor, SimulatedPedal& thePedal) : executor(theExecutor), pedal(thePedal) {}

    void hear(BusChange change);

    Executor& executor;
    SimulatedPedal& pedal;

    std::mutex mutex;  ///< never held while the pedal is called
    Condition changed;
    std::shared_ptr<SimulatedDevice> device;  ///< null while the pedal is off the bus
    std::uint64_t interruptions = 0;          ///< resets and departures: each ends all waiting transfers
    std::deque<Change> changes;               ///< to be delivered by handleEvents
    std::uint64_t lastChange = 0;
    std::vector<Registration> registrations;

    UsbResult openResult = usbSuccess;
    UsbResult claimResult = usbSuccess;
    UsbResult detachResult = usbSuccess;
    bool kernelDriver = false;
    int openHandles = 0;
};

}  // namespace kzq::simulator
