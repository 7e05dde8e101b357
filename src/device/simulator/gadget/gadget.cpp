#include "device/simulator/gadget/gadget.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "device/simulator/usbip/descriptors.h"
#include "platform/log.h"

namespace kzq::simulator {

namespace {

constexpr std::size_t fullSpeedPacket = 64;
constexpr std::size_t highSpeedPacket = 512;

/// The file named after the device port: the only one until the descriptors are written.
std::optional<std::filesystem::path> portIn(const std::filesystem::path& folder) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!entry->path().filename().string().starts_with("ep")) {
            return entry->path();
        }
    }
    return std::nullopt;
}

/// As GadgetFS wants them: a mark of the format, the configuration at full and at high speed, the device.
Bytes descriptors() {
    constexpr std::size_t firstPacketSize = 9 + 9 + 4;
    constexpr std::size_t secondPacketSize = firstPacketSize + 7;
    const auto& high = usbip::configurationDescriptor();
    auto full = high;
    for (const auto at : {firstPacketSize, secondPacketSize}) {
        full.at(at) = fullSpeedPacket;
        full.at(at + 1) = 0;
    }
    Bytes all{0, 0, 0, 0};
    all.insert(all.end(), full.begin(), full.end());
    all.insert(all.end(), high.begin(), high.end());
    all.insert(all.end(), usbip::deviceDescriptor().begin(), usbip::deviceDescriptor().end());
    return all;
}

SetupPacket setupOf(const usb_ctrlrequest& request) {  // whose fields are little-endian, as this computer is
    return {request.bRequestType, request.bRequest, request.wValue, request.wIndex, request.wLength};
}

constexpr std::uint8_t toComputer = 0x80;

}  // namespace

Gadget::Gadget(SimulatedPedal& pedal, std::filesystem::path folder)
    : pedal_(pedal), folder_(std::move(folder)), wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Gadget::~Gadget() {
    pedal_.setListener({});
    over_ = true;
    ::eventfd_write(wake_.get(), 1);
    if (thread_.joinable()) {
        thread_.join();
    }
    withdraw();
}

Result<void> Gadget::start() {
    if (auto offered = offer(); !offered) {
        return offered;
    }
    pedal_.setListener([this](BusChange) { ::eventfd_write(wake_.get(), 1); });
    thread_ = std::thread([this] { run(); });
    return {};
}

Result<void> Gadget::offer() {
    const auto port = portIn(folder_);
    errno = ENOENT;
    control_ = Descriptor(port ? ::open(port->c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK) : -1);
    const auto words = descriptors();
    if (!control_ ||
        ::write(control_.get(), words.data(), words.size()) != static_cast<ssize_t>(words.size())) {
        const int error = errno;
        control_.close();
        return Trouble{.kind = Trouble::Kind::badAddress,
                       .where = folder_.string(),
                       .error = error,
                       .remedy = "sudo modprobe dummy_hcd && sudo modprobe gadgetfs && sudo mkdir -p " +
                                 folder_.string() + " && sudo mount -t gadgetfs none " + folder_.string()};
    }
    return {};
}

/// Closing its files takes a gadget off the bus. The pipes first: the kernel waits for their transfers.
void Gadget::withdraw() {
    pipes_.reset();
    control_.close();
    unanswered_.reset();
}

void Gadget::run() {
    while (!over_) {
        std::array<pollfd, 2> files{pollfd{wake_.get(), POLLIN, 0}, pollfd{control_.get(), POLLIN, 0}};
        if (::poll(files.data(), files.size(), -1) < 0) {
            continue;  // a signal
        }
        if (eventfd_t ignored = 0; files[0].revents != 0 && ::eventfd_read(wake_.get(), &ignored) == 0) {
            follow();
        }
        if (files[1].revents != 0 && control_ && !hear()) {
            withdraw();
        }
    }
}

/// The pedal came, left, or has something to say.
void Gadget::follow() {
    if (pedal_.isPlugged() && !control_) {
        if (const auto offered = offer(); !offered) {
            log(LogCategory::simulator, "gadget: " + std::generic_category().message(offered.error().error));
        }
    } else if (!pedal_.isPlugged() && control_) {
        withdraw();
    }
    if (const auto again = std::exchange(unanswered_, std::nullopt)) {
        answer(*again);
    }
    if (pipes_) {
        pipes_->reconsider();
    }
}

bool Gadget::hear() {
    std::array<usb_gadgetfs_event, 5> events{};
    const auto came = ::read(control_.get(), events.data(), sizeof(events));
    if (came < 0) {
        return errno == EINTR || errno == EAGAIN;
    }
    const auto count = static_cast<std::size_t>(came) / sizeof(events[0]);
    std::for_each_n(events.begin(), count, [this](const usb_gadgetfs_event& event) { handle(event); });
    return true;
}

void Gadget::handle(const usb_gadgetfs_event& event) {
    switch (event.type) {
        case GADGETFS_CONNECT:
            speed_ = event.u.speed;
            return;
        case GADGETFS_DISCONNECT:  // also a reset
            unanswered_.reset();
            if (std::exchange(pipes_, nullptr)) {
                pedal_.reset();
            }
            return;
        case GADGETFS_SETUP:
            answer(setupOf(event.u.setup));
            return;
        default:
            return;
    }
}

void Gadget::answer(const SetupPacket& setup) {
    if (usbip::StandardRequests::concern(setup)) {
        const auto words = standard_.answer(setup);
        if (words && usbip::StandardRequests::restarts(setup)) {
            pipes_.reset();
            pipes_ = std::make_unique<GadgetPipes>(
                pedal_, folder_, speed_ == USB_SPEED_HIGH ? highSpeedPacket : fullSpeedPacket);
        }
        words ? reply(setup, *words) : stall(setup);
        return;
    }
    if (pipes_) {
        pipes_->drain();
    }
    Bytes words(setup.length);
    const auto result = pedal_.control(setup, words);
    switch (result.status) {
        case TransferStatus::done:
        case TransferStatus::overrun:
            reply(setup, ByteView(words).first(std::min(result.transferred, words.size())));
            break;
        case TransferStatus::stalled:
            stall(setup);
            break;
        case TransferStatus::pending:
            unanswered_ = setup;
            return;
        case TransferStatus::gone:
            return;
    }
    if (pipes_) {
        pipes_->reconsider();
    }
}

void Gadget::reply(const SetupPacket& setup, ByteView bytes) {
    if ((setup.requestType & toComputer) == 0) {
        acknowledge();
    } else if (::write(control_.get(), bytes.data(), bytes.size()) < 0) {
        log(LogCategory::simulator, "gadget: a reply is lost: " + std::generic_category().message(errno));
    }
}

void Gadget::acknowledge() {
    std::uint8_t nothing = 0;
    static_cast<void>(::read(control_.get(), &nothing, 0));
}

/// The opposite of what is due.
void Gadget::stall(const SetupPacket& setup) {
    std::uint8_t nothing = 0;
    if ((setup.requestType & toComputer) != 0) {
        static_cast<void>(::read(control_.get(), &nothing, 0));
    } else {
        static_cast<void>(::write(control_.get(), &nothing, 0));
    }
}

}  // namespace kzq::simulator
