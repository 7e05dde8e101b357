#pragma once

#include "device/simulator/usbip/transfer_queue.h"
#include "device/simulator/usbip/usbip_wire.h"

namespace kzq::simulator::usbip {

class Connection;

/// The transfers of a computer that has imported the pedal.
class UrbSession {
  public:
    UrbSession(SimulatedPedal& pedal, Connection& connection)
        : connection_(connection), transfers_(pedal, [this](const Transfer& transfer, TransferResult result) {
              return reply(transfer, result);
          }) {}

    /// Carries transfers until the computer hangs up, breaks the protocol, or the pedal leaves.
    void run();

  private:
    bool step();
    bool submit(const UrbRequest& request);
    bool unlink(const UrbRequest& request);
    bool reply(const Transfer& transfer, TransferResult result);

    Connection& connection_;
    TransferQueue transfers_;
};

}  // namespace kzq::simulator::usbip
