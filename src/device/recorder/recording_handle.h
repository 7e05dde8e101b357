#pragma once

#include <functional>
#include <memory>
#include <string>

#include "device/recorder/session_recorder.h"
#include "device/usb_port.h"

namespace kzq::recorder {

/// An open device whose calls are recorded.
class RecordingHandle : public UsbHandle {
  public:
    /// `number`: of the call that opened it.
    RecordingHandle(std::unique_ptr<UsbHandle> handle, unsigned number,
                    std::shared_ptr<SessionRecorder> recorder)
        : handle_(std::move(handle)), number_(number), recorder_(std::move(recorder)) {}
    ~RecordingHandle() override;

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
    std::optional<Trouble> obstacle() const override { return handle_->obstacle(); }

  private:
    UsbResult recorded(const std::string& words, const std::function<UsbResult()>& call);

    std::unique_ptr<UsbHandle> handle_;
    unsigned number_;
    std::shared_ptr<SessionRecorder> recorder_;
};

}  // namespace kzq::recorder
