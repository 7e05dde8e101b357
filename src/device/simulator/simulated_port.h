#pragma once

#include <memory>

#include "device/simulator/simulated_pedal.h"
#include "device/usb_port.h"

namespace kzq::simulator {

/// The simulated pedal without a bus: a UsbPort in the same process. Transfers wait through the executor, so
/// they take no real time under a virtual clock.
class SimulatedPort : public UsbPort {
  public:
    /// Both outlive the port.
    SimulatedPort(Executor& executor, SimulatedPedal& pedal);
    ~SimulatedPort() override;

    UsbResult initialize() override;
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override;
    UsbResult handleEvents() override;
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override;
    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override;

    // --- the host system's side

    /// The result of opening from now on, such as usbAccess.
    void setOpenResult(UsbResult result);
    /// A kernel driver holds interface 0; detaching it returns `result`.
    void setKernelDriver(bool active, UsbResult detachResult = usbSuccess);
    void setClaimResult(UsbResult result);
    /// Handles that are open now.
    int openHandles() const;

    /// Shared with the open handles.
    struct Host;

  private:
    std::shared_ptr<Host> host_;
};

}  // namespace kzq::simulator
