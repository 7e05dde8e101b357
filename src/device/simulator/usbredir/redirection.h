#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "device/simulator/simulated_pedal.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq::simulator {

class RedirectionSession;

/// The simulated pedal in a machine that QEMU emulates, by QEMU's usb-redir: at whatever USB controller the
/// machine has. While the pedal is plugged in, there is a connection to QEMU's socket.
class Redirection : Fixed {
  public:
    /// `pedal` outlives this. `socket`: the path of the Unix socket at which QEMU listens.
    Redirection(SimulatedPedal& pedal, std::string socket);
    /// Unplugs the pedal from the machine.
    ~Redirection();

    /// Connects the pedal, which is plugged in, and again whenever it comes back. If QEMU hangs up, it stays
    /// disconnected until it is unplugged and plugged in again. badAddress: QEMU does not listen there.
    Result<void> start();

  private:
    bool connect();
    void run();
    void follow();

    SimulatedPedal& pedal_;
    std::string socket_;
    Descriptor wake_;
    std::atomic<bool> over_ = false;
    std::thread thread_;

    // Of the thread.
    bool wasPlugged_ = true;
    std::unique_ptr<RedirectionSession> session_;
};

}  // namespace kzq::simulator
