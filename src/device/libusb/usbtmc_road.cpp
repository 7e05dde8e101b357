#include "device/libusb/usbtmc_road.h"

#include <fcntl.h>
#include <libusb.h>
#include <linux/usb/tmc.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <thread>

#include "device/libusb/libusb_result.h"
#include "device/usb_port.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr auto driverFolder = "/sys/bus/usb/drivers/usbtmc";
constexpr auto nodesFolder = "/sys/class/usbmisc";
/// How long to wait for udev to give the node to the user.
constexpr std::chrono::milliseconds accessPatience{500};
constexpr std::chrono::milliseconds accessPause{2};

/// Leaves the interface to its kernel driver until the end of the scope.
class Lent : Fixed {
  public:
    Lent(libusb_device_handle* handle, int interface) : handle_(handle), interface_(interface) {
        result_ = libusb_release_interface(handle_, interface_);
        if (result_ == LIBUSB_SUCCESS) {
            result_ = libusb_attach_kernel_driver(handle_, interface_);
        }
    }
    ~Lent() {
        if (result_ == LIBUSB_SUCCESS) {
            logged("taking the interface back from usbtmc", libusb_detach_kernel_driver(handle_, interface_));
        }
        logged("claiming the interface again", libusb_claim_interface(handle_, interface_));
    }

    int result() const { return result_; }

  private:
    libusb_device_handle* handle_;
    int interface_;
    int result_;
};

int numberIn(const fs::path& file) {
    std::ifstream stream(file);
    int number = -1;
    stream >> number;
    return number;
}

/// The file in /dev through which the driver reaches this device.
std::optional<fs::path> nodeOf(libusb_device* device) {
    std::error_code error;
    for (fs::directory_iterator entry(nodesFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename();
        std::error_code lost;
        const auto parent = fs::canonical(entry->path() / "device", lost).parent_path();
        if (!lost && name.string().starts_with("usbtmc") &&
            numberIn(parent / "busnum") == libusb_get_bus_number(device) &&
            numberIn(parent / "devnum") == libusb_get_device_address(device)) {
            return fs::path("/dev") / name;
        }
    }
    return std::nullopt;
}

/// The file appears at once and belongs to root; udev applies its rules a little later.
Descriptor openNode(const fs::path& node) {
    const auto deadline = Clock::now() + accessPatience;
    while (true) {
        Descriptor file(::open(node.c_str(), O_RDWR | O_CLOEXEC));
        if (file || errno != EACCES || Clock::now() >= deadline) {
            return file;
        }
        std::this_thread::sleep_for(accessPause);
    }
}

int resultOf(int error) {
    switch (error) {
        case EPIPE:
            return usbPipe;
        case ETIMEDOUT:
            return usbTimeout;
        case ENODEV:
        case ESHUTDOWN:
            return usbNoDevice;
        case EOVERFLOW:
            return usbOverflow;
        default:
            return usbIo;
    }
}

int forward(const Descriptor& node, const usbtmc_request& setup, std::span<std::uint8_t> reply) {
    usbtmc_ctrlrequest order{setup, reply.data()};
    const int came = ::ioctl(node.get(), USBTMC_IOCTL_CTRL_REQUEST, &order);
    if (came < 0) {
        return logged("a request through usbtmc", resultOf(errno));
    }
    // The driver copies its whole buffer, even stale bytes after a short reply.
    std::ranges::fill(reply.subspan(std::min(reply.size(), static_cast<std::size_t>(came))), std::uint8_t{0});
    return came;
}

}  // namespace

UsbtmcRoad::Outcome UsbtmcRoad::control(libusb_device_handle* handle, int interface, std::uint8_t requestType,
                                        std::uint8_t request, std::uint16_t value, std::uint16_t index,
                                        std::span<std::uint8_t> reply) {
    if (!closed_.empty()) {
        return {.obstacle = closed_};
    }
    std::error_code ignored;
    if (!fs::exists(driverFolder, ignored)) {
        return {.obstacle = "the kernel's usbtmc driver is not loaded"};
    }
    const Lent lent(handle, interface);
    if (lent.result() == LIBUSB_ERROR_NO_DEVICE) {
        return {.taken = true, .result = usbNoDevice, .obstacle = {}};
    }
    const auto node = lent.result() == LIBUSB_SUCCESS ? nodeOf(libusb_get_device(handle)) : std::nullopt;
    if (!node) {
        return {.obstacle = "the kernel's usbtmc driver does not know the pedal"};
    }
    const Descriptor file = openNode(*node);
    if (!file) {
        closed_ = node->string() + " cannot be opened: " + std::generic_category().message(errno);
        return {.obstacle = closed_};
    }
    const usbtmc_request setup{requestType, request, value, index, static_cast<std::uint16_t>(reply.size())};
    return {.taken = true, .result = forward(file, setup, reply), .obstacle = {}};
}

}  // namespace kzq
