#pragma once

#include <functional>
#include <memory>
#include <string>

#include "device/recorder/recording.h"
#include "device/usb_port.h"
#include "platform/executor.h"

namespace kzq::recorder {

/// Plays a recording back: each call gets its recorded result, and hot-plug events come, at their recorded
/// times after the start. The calls have to be the recorded ones, in the recorded order; those that never
/// ended do not end here. Needs a thread in `handleEvents`, as any port does.
///
/// The first call that differs stops the replay: that call and all others, including waiting ones, fail with
/// usbNoDevice. Closing a device does not count as a call, and a release is allowed after the recording's
/// end: a recorded program may have ended without it.
class ReplayPort : public UsbPort {
  public:
    /// Called with what differs: the line of the recording, what it says and what was asked.
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
