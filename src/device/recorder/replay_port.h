#pragma once

#include <functional>
#include <memory>
#include <string>

#include "device/recorder/recording.h"
#include "device/usb_port.h"
#include "platform/executor.h"

namespace kzq::recorder {

/// Plays a recording back: each call gets the result that it had, and hot-plug its events, at the times that
/// they had after the start. The calls have to be the recorded ones, in the recorded order; those that never
/// ended do not end here. Needs a thread in `handleEvents`, as any port does.
///
/// From the first call that differs on nothing is played any more: that call and all others, also those that
/// wait, fail with usbNoDevice. Closing a device is no call here, and behind the recording's end one may
/// still be released: a recorded program may have ended without.
class ReplayPort : public UsbPort {
  public:
    /// Hears what differs: the line of the recording, what stands there and what was asked.
    using Listener = std::function<void(const std::string& difference)>;

    /// `executor` outlives the port and its handles.
    ReplayPort(Executor& executor, Recording recording, Listener differs);

    UsbResult initialize() override;
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override;
    UsbResult handleEvents() override;
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override;
    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override;

    /// How many events, apart from closing, have not been played.
    std::size_t left() const;

    /// Shared with the open handles.
    struct Player;

  private:
    std::unique_ptr<UsbHandle> open(const std::string& words, UsbResult& result);

    std::shared_ptr<Player> player_;
};

}  // namespace kzq::recorder
