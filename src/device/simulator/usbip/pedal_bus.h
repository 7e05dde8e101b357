#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

#include "device/simulator/simulated_pedal.h"
#include "device/simulator/usbip/usbip_wire.h"

namespace kzq::simulator::usbip {

class Connection;

/// The cable between the pedal and whichever computer has imported it: one at a time. When the pedal leaves,
/// the computer's connection is hung up, which is how a computer learns of it. Thread-safe.
class PedalBus {
  public:
    using ArrivalListener = std::function<void()>;

    /// `pedal` outlives this. `arrived` is called on the thread that plugged the pedal in.
    PedalBus(SimulatedPedal& pedal, ArrivalListener arrived);
    PedalBus(const PedalBus&) = delete;
    PedalBus& operator=(const PedalBus&) = delete;
    PedalBus(PedalBus&&) = delete;
    PedalBus& operator=(PedalBus&&) = delete;
    ~PedalBus();

    SimulatedPedal& pedal() { return pedal_; }
    static DeviceRecord record();

    /// ok: the pedal is `computer`'s until `release`.
    OperationStatus occupy(const std::shared_ptr<Connection>& computer);
    void release(const std::shared_ptr<Connection>& computer);

  private:
    void hear(BusChange change);

    SimulatedPedal& pedal_;
    ArrivalListener arrived_;
    std::mutex mutex_;
    std::shared_ptr<Connection> computer_;
};

}  // namespace kzq::simulator::usbip
