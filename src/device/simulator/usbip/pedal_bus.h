#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "device/simulator/simulated_pedal.h"
#include "device/simulator/usbip/usbip_wire.h"
#include "platform/fixed.h"

namespace kzq::simulator::usbip {

class Connection;

/// The cable between the pedal and the one computer that has imported it. When the pedal leaves, the
/// computer's connection is closed, which is how the computer notices. Thread-safe.
class PedalBus : Fixed {
  public:
    using ArrivalListener = std::function<void()>;

    /// `pedal` outlives this. `arrived` is called on the thread that plugged the pedal in.
    PedalBus(SimulatedPedal& pedal, ArrivalListener arrived);
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
