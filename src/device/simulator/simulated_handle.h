#pragma once

#include <functional>
#include <memory>
#include <span>

#include "device/simulator/simulated_host.h"

namespace kzq::simulator {

/// An open simulated pedal. It must not outlive the pedal, but may outlive the port.
class SimulatedHandle : public UsbHandle {
  public:
    /// The host already counts it as open.
    SimulatedHandle(std::shared_ptr<SimulatedPort::Host> host, std::shared_ptr<SimulatedDevice> device);
    ~SimulatedHandle() override;

    int kernelDriverActive(int interface) override;
    UsbResult detachKernelDriver(int interface) override;
    UsbResult claimInterface(int interface) override;
    UsbResult releaseInterface(int interface) override;
    int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                std::span<std::uint8_t> reply) override;
    UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                     std::size_t& transferred) override;
    UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                      std::atomic<std::size_t>& transferred) override;
    UsbResult reset() override;

  private:
    UsbResult reach(int interface) const;
    UsbResult reachPipe(bool exists) const;
    UsbResult carryOut(const std::function<TransferResult()>& ask, std::size_t& transferred);

    std::shared_ptr<SimulatedPort::Host> host_;
    std::shared_ptr<SimulatedDevice> device_;
};

}  // namespace kzq::simulator
