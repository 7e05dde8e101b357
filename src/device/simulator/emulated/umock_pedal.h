#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "device/simulator/emulated/usbfs_node.h"
#include "device/simulator/simulated_pedal.h"
#include "platform/fixed.h"

namespace kzq {

/// Puts the simulated pedal on an emulated bus in this process, where the real libusb finds it: it arrives,
/// leaves and returns there as the model does, under a new address each time. Needs umockdev-wrapper. Create
/// the first one before libusb is initialised, and only one at a time.
class UmockPedal : Fixed {
  public:
    /// `pedal` outlives this and all of libusb's handles to it.
    explicit UmockPedal(simulator::SimulatedPedal& pedal);
    /// Takes the pedal off the bus.
    ~UmockPedal();

    HostRules& rules() { return rules_; }
    /// Whether users other than root may open the pedal on the bus.
    void setPermitted(bool permitted);
    /// The system gives the interface to a driver, whoever has claimed it.
    void bind(const std::string& driver);
    /// Waits until so many transfers wait for the pedal.
    bool waitUntilBlocked(std::size_t count = 1);
    /// Transfers that libusb has not got back.
    std::size_t held();

  private:
    struct Bus;
    static Bus& bus();

    void change(simulator::BusChange change);
    void arrive();
    std::shared_ptr<UsbfsNode> node();

    simulator::SimulatedPedal& pedal_;
    HostRules rules_;
    mutable std::mutex mutex_;
    std::shared_ptr<UsbfsNode> node_;  ///< of the pedal on the bus
    std::string name_;                 ///< of its file, below /dev
};

}  // namespace kzq
