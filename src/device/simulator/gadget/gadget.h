#pragma once

#include <linux/usb/gadgetfs.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <thread>

#include "device/simulator/gadget/gadget_pipes.h"
#include "device/simulator/simulated_pedal.h"
#include "device/simulator/usbip/standard_requests.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq::simulator {

/// The simulated pedal as a true USB device, through the kernel's GadgetFS: at the device port of a board,
/// or, with dummy_hcd, on a bus of this computer. While the pedal is plugged in, it is on the bus.
///
/// This end sees packets, not transfers: audio goes out ahead of the read that asks for it, one piece at
/// most.
class Gadget : Fixed {
  public:
    /// `pedal` outlives this. `folder`: where GadgetFS is mounted.
    Gadget(SimulatedPedal& pedal, std::filesystem::path folder);
    /// Takes the pedal off the bus.
    ~Gadget();

    /// Offers the pedal, which is plugged in, from now on. badAddress: there is no device port, or it is
    /// taken.
    Result<void> start();

  private:
    Result<void> offer();
    void withdraw();
    void run();
    void follow();
    bool hear();
    void handle(const usb_gadgetfs_event& event);
    void answer(const SetupPacket& setup);
    void reply(const SetupPacket& setup, ByteView bytes);
    void acknowledge();
    void stall(const SetupPacket& setup);

    SimulatedPedal& pedal_;
    std::filesystem::path folder_;
    Descriptor wake_;
    std::atomic<bool> over_ = false;
    std::thread thread_;

    // Of the thread.
    Descriptor control_;  ///< while the pedal is on the bus
    usb_device_speed speed_ = USB_SPEED_HIGH;
    usbip::StandardRequests standard_;
    std::optional<SetupPacket> unanswered_;  ///< the pedal is silent about it
    std::unique_ptr<GadgetPipes> pipes_;     ///< while the host has it configured
};

}  // namespace kzq::simulator
