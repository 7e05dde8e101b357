#pragma once

#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "device/simulator/usbip/pedal_bus.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq::simulator::usbip {

class Connection;

/// Offers the pedal to computers, which list and import it over TCP. Each connection has a
/// thread of its own.
class UsbipServer : Fixed {
  public:
    /// `bus` outlives this.
    explicit UsbipServer(PedalBus& bus) : bus_(bus) {}
    /// Closes all connections and waits for the threads.
    ~UsbipServer();

    /// Listens on "ADDRESS:PORT", such as 127.0.0.1:3240 or [::1]:0 (any free port). Returns where; or
    /// badAddress. Once only.
    Result<std::string> listen(const std::string& place);
    /// Carries the transfers of a computer at the other end of `socket` that has imported the pedal by other
    /// means. Anything but ok: it cannot have the pedal now.
    OperationStatus carry(Descriptor socket);

  private:
    struct Client {
        std::shared_ptr<Connection> connection;
        std::thread thread;
        bool ended = false;
    };

    void accept();
    void serve(const std::shared_ptr<Connection>& connection);
    void list(Connection& connection);
    void start(const std::shared_ptr<Connection>& connection, bool imported);
    void carryOut(const std::shared_ptr<Connection>& connection);

    PedalBus& bus_;
    Descriptor listening_;
    std::thread accepting_;
    std::mutex mutex_;
    std::list<Client> clients_;
};

}  // namespace kzq::simulator::usbip
