#pragma once

#include <memory>

#include "device/recorder/replay_player.h"

namespace kzq::recorder {

/// A device that was opened in a recording.
class ReplayHandle : public UsbHandle {
  public:
    /// `number`: of the call that opened it.
    ReplayHandle(std::shared_ptr<ReplayPort::Player> player, unsigned number)
        : player_(std::move(player)), number_(number) {}

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
    UsbResult ask(const std::string& words);

    std::shared_ptr<ReplayPort::Player> player_;
    unsigned number_;
};

}  // namespace kzq::recorder
