#include "device/simulator/emulated/usbfs_node.h"

#include <fcntl.h>
#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>
#include <utility>

namespace kzq {

using simulator::SetupPacket;
using simulator::TransferResult;
using simulator::TransferStatus;

namespace {

constexpr std::size_t setupLength = 8;
constexpr unsigned inMask = 0x80;
constexpr int largestTransfer = 16 * 1024 * 1024;
constexpr std::size_t pipeCapacity = 4096;
constexpr std::array<std::uint8_t, pipeCapacity> filling{};

SetupPacket setupOf(std::span<const std::uint8_t> packet) {
    const auto u16 = [packet](std::size_t at) {
        return static_cast<std::uint16_t>(packet[at] | packet[at + 1] << 8);
    };
    return {packet[0], packet[1], u16(2), u16(4), u16(6)};
}

int statusOf(TransferStatus status, bool out) {
    switch (status) {
        case TransferStatus::done:
            return 0;
        case TransferStatus::stalled:
            return -EPIPE;
        case TransferStatus::overrun:
            return out ? 0 : -EOVERFLOW;
        case TransferStatus::pending:
        case TransferStatus::gone:
            break;
    }
    return -ESHUTDOWN;
}

}  // namespace

usbdevfs_urb& UsbfsNode::Urb::raw() const {
    return *reinterpret_cast<usbdevfs_urb*>(memory->data);
}

std::span<std::uint8_t> UsbfsNode::Urb::bytes() const {
    return {buffer->data, static_cast<std::size_t>(raw().buffer_length)};
}

UsbfsNode::UsbfsNode(simulator::SimulatedPedal& pedal, HostRules& rules)
    : pedal_(pedal), rules_(rules), handler_(umockdev_ioctl_base_new()) {
    g_signal_connect_data(handler_, "handle-ioctl", reinterpret_cast<GCallback>(&UsbfsNode::handle), this,
                          nullptr, GConnectFlags{});
}

UsbfsNode::~UsbfsNode() {
    g_signal_handlers_disconnect_by_data(handler_, this);
    g_object_unref(handler_);
    if (file_ >= 0) {
        close(file_);
    }
}

// A pipe with both ends open: while full, it does not poll as writable.
void UsbfsNode::makeFile(const std::filesystem::path& path) {
    const Lock lock(mutex_);
    if (mkfifo(path.c_str(), S_IRUSR | S_IWUSR) != 0) {
        throw std::runtime_error("no pipe for the device file");
    }
    file_ = open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (file_ < 0 || fcntl(file_, F_SETPIPE_SZ, static_cast<int>(pipeCapacity)) != int{pipeCapacity} ||
        write(file_, filling.data(), filling.size()) != ssize_t{pipeCapacity}) {
        throw std::runtime_error("the device file's pipe is not usable");
    }
}

void UsbfsNode::setReadable(bool readable) {
    if (std::exchange(readable_, readable) == readable) {
        return;
    }
    std::array<std::uint8_t, pipeCapacity> taken{};
    const auto moved =
        readable ? read(file_, taken.data(), taken.size()) : write(file_, filling.data(), filling.size());
    if (moved != ssize_t{pipeCapacity}) {
        throw std::runtime_error("the device file's pipe is out of step");
    }
}

void UsbfsNode::endTransfers() {
    const Lock lock(mutex_);
    endAll(-ESHUTDOWN);
}

void UsbfsNode::bind(const std::string& driver) {
    const Lock lock(mutex_);
    if (std::exchange(driver_, driver) == "usbfs") {
        endAll(-ESHUTDOWN);
    }
}

void UsbfsNode::leave() {
    const Lock lock(mutex_);
    gone_ = true;
    endAll(-ESHUTDOWN);
}

bool UsbfsNode::waitUntilBlocked(std::size_t count) {
    Lock lock(mutex_);
    return changed_.wait_for(lock, patience, [this, count] {
        return std::ranges::count(submitted_, true, &Urb::waits) >= static_cast<std::ptrdiff_t>(count);
    });
}

std::size_t UsbfsNode::held() {
    const Lock lock(mutex_);
    return submitted_.size() + ended_.size();
}

gboolean UsbfsNode::handle(UMockdevIoctlBase* /*base*/, UMockdevIoctlClient* client, gpointer self) {
    const int error = static_cast<UsbfsNode*>(self)->answer(client);
    umockdev_ioctl_client_complete(client, error == 0 ? 0 : -1, error);
    return TRUE;
}

/// A program that ends gives back what it has. umockdev does not say so by itself when it was another
/// process.
void UsbfsNode::forgetEnded() {
    const Lock lock(mutex_);
    if (transfers_ && umockdev_ioctl_client_get_connected(transfers_.get()) == 0) {
        transfers_.reset();
        driver_.clear();
        submitted_.clear();
        ended_.clear();
        setReadable(false);
    }
}

/// Returns 0 or an errno.
int UsbfsNode::answer(UMockdevIoctlClient* client) {
    forgetEnded();
    auto* const argument = umockdev_ioctl_client_get_arg(client);
    switch (umockdev_ioctl_client_get_request(client)) {
        case USBDEVFS_GET_CAPABILITIES: {
            const Data memory(umockdev_ioctl_data_resolve(argument, 0, sizeof(std::uint32_t), nullptr));
            std::uint32_t capabilities = USBDEVFS_CAP_NO_PACKET_SIZE_LIM | USBDEVFS_CAP_REAP_AFTER_DISCONNECT;
            umockdev_ioctl_data_update(memory.get(), 0, reinterpret_cast<guint8*>(&capabilities),
                                       sizeof(capabilities));
            return 0;
        }
        case USBDEVFS_GETDRIVER:
            return tellDriver(argument);
        case USBDEVFS_IOCTL:
            return obey(argument);
        case USBDEVFS_CLAIMINTERFACE:
        case USBDEVFS_DISCONNECT_CLAIM:  // how libusb claims again after a reset
            bind("usbfs");
            return 0;
        case USBDEVFS_RELEASEINTERFACE:
            bind("");
            return 0;
        case USBDEVFS_RESET:
            pedal_.reset();
            return 0;
        case USBDEVFS_SUBMITURB: {
            const Lock lock(mutex_);
            transfers_.reset(static_cast<UMockdevIoctlClient*>(g_object_ref(client)));
        }
            return submit(argument);
        case USBDEVFS_REAPURB:
        case USBDEVFS_REAPURBNDELAY:
            return reap(argument);
        case USBDEVFS_DISCARDURB:
            return discard(argument);
        default:
            return ENOTTY;
    }
}

int UsbfsNode::tellDriver(UMockdevIoctlData* argument) {
    const Lock lock(mutex_);
    if (gone_ || driver_.empty()) {
        return gone_ ? ENODEV : ENODATA;
    }
    const Data memory(umockdev_ioctl_data_resolve(argument, 0, sizeof(usbdevfs_getdriver), nullptr));
    usbdevfs_getdriver answer{};
    driver_.copy(static_cast<char*>(answer.driver), sizeof(answer.driver) - 1);
    umockdev_ioctl_data_update(memory.get(), 0, reinterpret_cast<guint8*>(&answer), sizeof(answer));
    return 0;
}

/// To take the driver off the interface; others are not obeyed.
int UsbfsNode::obey(UMockdevIoctlData* argument) {
    const Data memory(umockdev_ioctl_data_resolve(argument, 0, sizeof(usbdevfs_ioctl), nullptr));
    if (static_cast<unsigned>(reinterpret_cast<const usbdevfs_ioctl*>(memory->data)->ioctl_code) !=
        USBDEVFS_DISCONNECT) {
        return ENOTTY;
    }
    const Lock lock(mutex_);
    return std::exchange(driver_, "").empty() ? ENODATA : 0;
}

int UsbfsNode::submit(UMockdevIoctlData* argument) {
    Urb urb;
    urb.memory.reset(umockdev_ioctl_data_resolve(argument, 0, sizeof(usbdevfs_urb), nullptr));
    if (urb.raw().buffer_length > largestTransfer) {
        return ENOMEM;
    }
    urb.buffer.reset(umockdev_ioctl_data_resolve(urb.memory.get(), offsetof(usbdevfs_urb, buffer),
                                                 static_cast<gsize>(urb.raw().buffer_length), nullptr));
    Urbs::iterator submitted;
    {
        const Lock lock(mutex_);
        if (gone_) {
            return ENODEV;
        }
        if (const int error = refuse(urb); error != 0) {
            return error;
        }
        submitted = submitted_.insert(submitted_.end(), std::move(urb));
    }
    ask(submitted);
    return 0;
}

int UsbfsNode::refuse(const Urb& urb) const {
    if (urb.raw().type != USBDEVFS_URB_TYPE_CONTROL || !rules_.checksRecipient) {
        return 0;
    }
    constexpr unsigned typeMask = 0x60;
    constexpr unsigned vendorType = 0x40;
    constexpr unsigned recipientMask = 0x1F;
    constexpr unsigned toInterface = 1;
    const SetupPacket setup = setupOf(urb.bytes());
    const bool interface =
        (setup.requestType & typeMask) != vendorType && (setup.requestType & recipientMask) == toInterface;
    return interface && (setup.index & 0xFF) != 0 ? ENOENT : 0;
}

// Without the mutex while the pedal answers: it may leave instead, which calls `leave` here.
void UsbfsNode::ask(Urbs::iterator urb) {
    const bool isControl = urb->raw().type == USBDEVFS_URB_TYPE_CONTROL;
    const int fault = isControl ? rules_.nextControlStatus.exchange(0) : 0;
    const TransferResult result = fault != 0 ? TransferResult{} : transfer(*urb);
    const Lock lock(mutex_);
    if (urb->ended) {
        return;
    }
    if (result.status == TransferStatus::pending) {
        urb->waits = true;
        changed_.notify_all();
        return;
    }
    const bool out = !isControl && (urb->raw().endpoint & inMask) == 0;
    end(urb, fault != 0 ? fault : statusOf(result.status, out), result.transferred);
}

TransferResult UsbfsNode::transfer(const Urb& urb) {
    const auto bytes = urb.bytes();
    if (urb.raw().type == USBDEVFS_URB_TYPE_CONTROL) {
        return control(bytes);
    }
    return (urb.raw().endpoint & inMask) != 0 ? pedal_.bulkIn(bytes) : pedal_.bulkOut(bytes);
}

TransferResult UsbfsNode::control(std::span<std::uint8_t> packet) {
    return pedal_.control(setupOf(packet), packet.subspan(setupLength));
}

int UsbfsNode::reap(UMockdevIoctlData* argument) {
    const Lock lock(mutex_);
    if (ended_.empty()) {
        return gone_ ? ENODEV : EAGAIN;
    }
    // Pointing to it makes umockdev write back the structure and its buffer.
    const Data pointer(umockdev_ioctl_data_resolve(argument, 0, sizeof(void*), nullptr));
    umockdev_ioctl_data_set_ptr(pointer.get(), 0, ended_.front().memory.get());
    ended_.pop_front();
    setReadable(!ended_.empty());
    return 0;
}

int UsbfsNode::discard(UMockdevIoctlData* argument) {
    const Lock lock(mutex_);
    const auto address = *reinterpret_cast<const gulong*>(argument->data);
    const auto found = std::ranges::find_if(
        submitted_, [address](const Urb& urb) { return urb.memory->client_addr == address; });
    if (found == submitted_.end()) {
        return EINVAL;
    }
    end(found, -ENOENT, 0);
    return 0;
}

void UsbfsNode::end(Urbs::iterator urb, int status, std::size_t actual) {
    urb->raw().status = status;
    urb->raw().actual_length = static_cast<int>(actual);
    urb->ended = true;
    ended_.splice(ended_.end(), submitted_, urb);
    setReadable(true);
}

void UsbfsNode::endAll(int status) {
    while (!submitted_.empty()) {
        end(submitted_.begin(), status, 0);
    }
}

}  // namespace kzq
