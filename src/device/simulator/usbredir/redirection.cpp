#include "device/simulator/usbredir/redirection.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "device/simulator/usbredir/redirection_session.h"
#include "platform/log.h"

namespace kzq::simulator {

namespace {

/// None, with errno set, if nobody listens at `path`.
Descriptor connectionTo(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return {};
    }
    path.copy(address.sun_path, path.size());
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        return {};
    }
    return socket;
}

}  // namespace

Redirection::Redirection(SimulatedPedal& pedal, std::string socket)
    : pedal_(pedal), socket_(std::move(socket)), wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Redirection::~Redirection() {
    pedal_.setListener({});
    over_ = true;
    ::eventfd_write(wake_.get(), 1);
    if (thread_.joinable()) {
        thread_.join();
    }
}

Result<void> Redirection::start() {
    if (!connect()) {
        return Trouble{.kind = Trouble::Kind::badAddress,
                       .where = socket_,
                       .error = errno,
                       .remedy = "qemu-system-x86_64 -device qemu-xhci -chardev socket,id=pedal,path=" +
                                 socket_ + ",server=on,wait=off -device usb-redir,chardev=pedal ..."};
    }
    pedal_.setListener([this](BusChange) { ::eventfd_write(wake_.get(), 1); });
    thread_ = std::thread([this] { run(); });
    return {};
}

bool Redirection::connect() {
    Descriptor socket = connectionTo(socket_);
    if (!socket) {
        return false;
    }
    session_ = std::make_unique<RedirectionSession>(pedal_, std::move(socket));
    return true;
}

void Redirection::run() {
    while (!over_) {
        std::array<pollfd, 2> files{pollfd{wake_.get(), POLLIN, 0},
                                    pollfd{session_ ? session_->socket() : -1, POLLIN, 0}};
        if (::poll(files.data(), files.size(), -1) < 0) {
            continue;  // a signal
        }
        if (eventfd_t ignored = 0; files[0].revents != 0 && ::eventfd_read(wake_.get(), &ignored) == 0) {
            follow();
        }
        if (files[1].revents != 0 && session_ && !session_->hear()) {
            session_.reset();
        }
    }
}

/// The pedal came, left, or has something to say.
void Redirection::follow() {
    const bool plugged = pedal_.isPlugged();
    if (!plugged || (session_ && !session_->reconsider())) {
        session_.reset();
    } else if (!std::exchange(wasPlugged_, plugged) && !connect()) {
        log(LogCategory::simulator, "QEMU: " + std::generic_category().message(errno));
    }
    wasPlugged_ = plugged;
}

}  // namespace kzq::simulator
