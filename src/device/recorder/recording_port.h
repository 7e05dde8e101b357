#pragma once

#include <memory>

#include "device/recorder/session_recorder.h"
#include "device/usb_port.h"

namespace kzq::recorder {

/// A port that records every call to another one, with its result, and every hot-plug event. Incoming data is
/// recorded in full. A call is written before it is made, so even one that never ends is in the recording.
class RecordingPort : public UsbPort {
  public:
    /// `port` outlives this and its handles.
    RecordingPort(UsbPort& port, std::shared_ptr<SessionRecorder> recorder)
        : port_(port), recorder_(std::move(recorder)) {}

    UsbResult initialize() override;
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override;
    UsbResult handleEvents() override { return port_.handleEvents(); }
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override;
    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override;

  private:
    std::unique_ptr<UsbHandle> opened(unsigned call, std::unique_ptr<UsbHandle> handle, UsbResult result);

    UsbPort& port_;
    std::shared_ptr<SessionRecorder> recorder_;
};

}  // namespace kzq::recorder
