#pragma once

#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <utility>

#include "device/simulator/simulated_port.h"
#include "passing_handle.h"

namespace kzq::test {

/// A simulated port whose bulk transfers take time, so that a test can do something in the middle of a loop.
class PacedPort : public simulator::SimulatedPort {
  public:
    PacedPort(Executor& executor, simulator::SimulatedPedal& pedal)
        : SimulatedPort(executor, pedal), executor_(executor) {}

    Executor::Duration pace{};       ///< of one read
    Executor::Duration writePace{};  ///< of one write, or of a piece of it
    std::size_t writePiece = std::numeric_limits<std::size_t>::max();
    Executor::Duration openPace{};  ///< of opening
    /// Changes a reply on its way.
    std::function<void(std::uint8_t code, std::span<std::uint8_t> reply)> tamper;

    using SimulatedPort::open;
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override {
        if (openPace > Executor::Duration::zero()) {
            executor_.sleep(openPace);
        }
        auto handle = SimulatedPort::open(device, result);
        return handle ? std::make_unique<Handle>(*this, std::move(handle)) : nullptr;
    }

  private:
    class Handle : public PassingHandle {
      public:
        Handle(PacedPort& port, std::unique_ptr<UsbHandle> handle)
            : PassingHandle(std::move(handle)), port_(port) {}

        int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                    std::span<std::uint8_t> reply) override {
            const int came = PassingHandle::control(requestType, request, value, index, reply);
            if (port_.tamper) {
                port_.tamper(requestType, reply);
            }
            return came;
        }
        UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                         std::size_t& transferred) override {
            port_.executor_.sleep(port_.pace);
            return PassingHandle::bulkIn(endpoint, into, due, transferred);
        }
        UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                          std::atomic<std::size_t>& transferred) override {
            std::atomic<std::size_t> moved = 0;
            transferred = 0;
            do {
                const auto piece =
                    from.subspan(transferred, std::min(port_.writePiece, from.size() - transferred));
                port_.executor_.sleep(port_.writePace);
                const auto result = PassingHandle::bulkOut(endpoint, piece, moved);
                transferred += moved;
                if (result != usbSuccess || moved != piece.size()) {
                    return result;
                }
            } while (transferred < from.size());
            return usbSuccess;
        }

      private:
        PacedPort& port_;
    };

    Executor& executor_;
};

}  // namespace kzq::test
