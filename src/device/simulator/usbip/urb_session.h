#pragma once

#include <list>

#include "audio/wave.h"
#include "device/simulator/simulated_pedal.h"
#include "device/simulator/usbip/standard_requests.h"
#include "device/simulator/usbip/usbip_wire.h"

namespace kzq::simulator::usbip {

class Connection;

/// The transfers of a computer that has imported the pedal. Transfers on one pipe end in the order in which
/// they were submitted; one without an answer yet waits for the pedal, or for the computer to unlink it.
class UrbSession {
  public:
    UrbSession(SimulatedPedal& pedal, Connection& connection) : pedal_(pedal), connection_(connection) {}

    /// Carries transfers until the computer hangs up, breaks the protocol, or the pedal leaves.
    void run();

  private:
    struct Waiting {
        UrbRequest request;
        Bytes data;  ///< outgoing data, or room for incoming data
    };
    enum class Outcome { ended, waits, lost };

    bool step();
    bool submit(const UrbRequest& request);
    bool unlink(const UrbRequest& request);
    bool serveWaiting();
    Outcome attempt(Waiting& waiting);
    TransferResult transfer(Waiting& waiting);
    TransferResult control(Waiting& waiting);
    bool reply(const Waiting& waiting, TransferResult result);

    SimulatedPedal& pedal_;
    Connection& connection_;
    StandardRequests standard_;
    std::list<Waiting> waiting_;
};

}  // namespace kzq::simulator::usbip
