#include "device/simulator/usbip/usbip_server.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "device/simulator/usbip/connection.h"
#include "device/simulator/usbip/descriptors.h"
#include "device/simulator/usbip/urb_session.h"

namespace kzq::simulator::usbip {

namespace {

constexpr std::size_t mostClients = 16;

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { ::freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

Addresses addressesOf(const std::string& place) {
    const auto colon = place.rfind(':');
    if (colon == std::string::npos) {
        return nullptr;
    }
    std::string host = place.substr(0, colon);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']') {
        host = host.substr(1, host.size() - 2);
    }
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    wanted.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const std::string port = place.substr(colon + 1);
    return Addresses(::getaddrinfo(host.c_str(), port.c_str(), &wanted, &found) == 0 ? found : nullptr);
}

std::string placeOf(int socket) {
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::getsockname(socket, generic, &length) != 0 ||
        ::getnameinfo(generic, length, host.data(), host.size(), port.data(), port.size(),
                      NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
        return {};
    }
    const std::string name =
        address.ss_family == AF_INET6 ? "[" + std::string(host.data()) + "]" : host.data();
    return name + ":" + port.data();
}

bool startListening(int socket, const addrinfo& address) {
    constexpr int on = 1;
    constexpr int backlog = 8;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    return ::bind(socket, address.ai_addr, address.ai_addrlen) == 0 && ::listen(socket, backlog) == 0;
}

}  // namespace

UsbipServer::~UsbipServer() {
    if (accepting_.joinable()) {
        ::shutdown(listening_.get(), SHUT_RDWR);
        accepting_.join();
    }
    std::list<Client> clients;
    {
        const std::lock_guard lock(mutex_);
        clients.swap(clients_);
    }
    for (Client& client : clients) {
        client.connection->hangUp();
        client.thread.join();
    }
}

Result<std::string> UsbipServer::listen(const std::string& place) {
    const Addresses addresses = addressesOf(place);
    if (!addresses) {
        return Trouble{Trouble::Kind::badAddress, place};
    }
    listening_ = Descriptor(::socket(addresses->ai_family, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!listening_ || !startListening(listening_.get(), *addresses)) {
        return Trouble{Trouble::Kind::badAddress, place, errno};
    }
    accepting_ = std::thread([this] { accept(); });
    return placeOf(listening_.get());
}

OperationStatus UsbipServer::carry(Descriptor socket) {
    const auto connection = std::make_shared<Connection>(std::move(socket));
    const OperationStatus status = bus_.occupy(connection);
    if (status == OperationStatus::ok) {
        start(connection, true);
    }
    return status;
}

void UsbipServer::accept() {
    while (true) {
        Descriptor socket(::accept4(listening_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!socket) {
            if (errno == EINTR || errno == ECONNABORTED) {
                continue;
            }
            return;
        }
        constexpr int on = 1;
        ::setsockopt(socket.get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        start(std::make_shared<Connection>(std::move(socket)), false);
    }
}

void UsbipServer::start(const std::shared_ptr<Connection>& connection, bool imported) {
    const std::lock_guard lock(mutex_);
    std::erase_if(clients_, [](Client& client) {
        if (client.ended) {
            client.thread.join();
        }
        return client.ended;
    });
    if (clients_.size() >= mostClients) {
        bus_.release(connection);
        return;
    }
    Client& client = clients_.emplace_back(Client{connection, {}});
    client.thread = std::thread([this, connection, imported] {
        if (imported) {
            carryOut(connection);
        } else {
            serve(connection);
        }
        connection->hangUp();
        const std::lock_guard ending(mutex_);
        const auto self = std::ranges::find(clients_, connection, &Client::connection);
        if (self != clients_.end()) {
            self->ended = true;
        }
    });
}

void UsbipServer::serve(const std::shared_ptr<Connection>& connection) {
    std::array<std::uint8_t, operationHeaderLength> bytes{};
    if (!connection->read(bytes)) {
        return;
    }
    const OperationHeader request = decodeOperation(bytes);
    if (request.version != protocolVersion) {
        return;
    }
    if (request.code == operation::listRequest) {
        list(*connection);
        return;
    }
    std::array<std::uint8_t, busIdLength> busId{};
    if (request.code != operation::importRequest || !connection->read(busId)) {
        return;
    }
    const std::string_view wanted(reinterpret_cast<const char*>(busId.data()),
                                  ::strnlen(reinterpret_cast<const char*>(busId.data()), busId.size()));
    const OperationStatus status =
        wanted == PedalBus::record().busId ? bus_.occupy(connection) : OperationStatus::noDevice;
    const bool told =
        connection->write(encode(OperationHeader{.code = operation::importReply, .status = status}));
    if (status != OperationStatus::ok) {
        return;
    }
    if (told && connection->write(encode(PedalBus::record()))) {
        carryOut(connection);
    } else {
        bus_.release(connection);
    }
}

void UsbipServer::list(Connection& connection) {
    const bool present = bus_.pedal().isPlugged();
    std::array<std::uint8_t, 4> count{};
    storeBig32(count, 0, present ? 1 : 0);
    if (!connection.write(encode(OperationHeader{.code = operation::listReply})) ||
        !connection.write(count)) {
        return;
    }
    constexpr std::array<std::uint8_t, interfaceRecordLength> interface { vendorClass, 0, 0, 0 };
    if (present && connection.write(encode(PedalBus::record()))) {
        connection.write(interface);
    }
}

void UsbipServer::carryOut(const std::shared_ptr<Connection>& connection) {
    UrbSession(bus_.pedal(), *connection).run();
    bus_.release(connection);
}

}  // namespace kzq::simulator::usbip
