#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <optional>
#include <utility>

#include "audio/wave.h"
#include "device/simulator/simulated_pedal.h"
#include "device/simulator/usbip/standard_requests.h"

namespace kzq::simulator::usbip {

/// Linux makes no larger transfers.
inline constexpr std::size_t longestTransfer = std::size_t{16} << 20U;

/// A transfer that the computer has submitted.
struct Transfer {
    std::uint64_t number = 0;
    std::uint32_t endpoint = 0;  ///< without the direction bit
    bool in = false;
    SetupPacket setup = {};  ///< on endpoint 0
    Bytes data = {};         ///< outgoing data, or room for incoming data
    bool shortIsError = false;
};

/// The transfers of one computer. Those on one pipe end in the order in which they were submitted; one
/// without an answer yet waits for the pedal, or for the computer to cancel it. Not synchronised.
class TransferQueue {
  public:
    /// Sends the computer its answer, which has no more bytes than the transfer. False: it has hung up.
    using Answer = std::function<bool(const Transfer&, TransferResult)>;

    TransferQueue(SimulatedPedal& pedal, Answer answer) : pedal_(pedal), answer_(std::move(answer)) {}

    /// False: the pedal has left, or the computer has hung up or submitted too much.
    bool submit(Transfer transfer);
    /// The transfer, unless it is answered already.
    std::optional<Transfer> cancel(std::uint64_t number);
    /// To be called when the pedal may have something to say. Returns what `submit` does.
    bool reconsider();

  private:
    enum class Outcome { ended, waits, lost };

    Outcome attempt(Transfer& transfer);
    TransferResult carryOut(Transfer& transfer);
    TransferResult control(Transfer& transfer);

    SimulatedPedal& pedal_;
    Answer answer_;
    StandardRequests standard_;
    std::list<Transfer> waiting_;
};

}  // namespace kzq::simulator::usbip
