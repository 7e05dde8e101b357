#include "device/libusb/usbtmc_road.h"

#include <fcntl.h>
#include <libusb.h>
#include <linux/usb/tmc.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>
#include <thread>

#include "device/libusb/libusb_result.h"
#include "device/usb_port.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;
using Clock = RoadPatience::Clock;

constexpr auto nodesFolder = "/sys/class/usbmisc";
constexpr std::chrono::milliseconds betweenAttempts{2};
/// A program that only looks lets go of the interface sooner than this.
constexpr std::chrono::milliseconds holderPatience{500};

/// Takes the road's driver off the interface at the end of the scope, and another one if it came to it here.
class Bound : Fixed {
  public:
    Bound(const DeviceNode& node, int interface) : node_(node), interface_(interface) {}
    ~Bound() {
        const auto driver = node_.driver(interface_);
        if (driver == roadDriver || (ours_ && driver && *driver != programDriver)) {
            node_.unbindDriver(interface_);
        }
    }

    /// Has the kernel bind a driver: see DeviceNode.
    int bind() {
        const int error = node_.bindDriver(interface_);
        ours_ = ours_ || error == 0;
        return error;
    }

  private:
    const DeviceNode& node_;
    int interface_;
    bool ours_ = false;
};

/// Leaves the interface to others until the end of the scope.
class Lent : Fixed {
  public:
    Lent(libusb_device_handle* handle, int interface) : handle_(handle), interface_(interface) {
        libusb_release_interface(handle_, interface_);
    }
    ~Lent() { logged("claiming the interface again", libusb_claim_interface(handle_, interface_)); }

  private:
    libusb_device_handle* handle_;
    int interface_;
};

/// The file in /dev through which the driver reaches the device whose own file is `device`.
std::optional<fs::path> nodeOf(const fs::path& device) {
    std::error_code error;
    for (fs::directory_iterator entry(nodesFolder, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename();
        std::error_code lost;
        const auto parent = fs::canonical(entry->path() / "device", lost).parent_path();
        if (!lost && name.string().starts_with(roadDriver) && deviceFile(parent) == device) {
            return fs::path("/dev") / name;
        }
    }
    return std::nullopt;
}

int resultOf(int error) {
    switch (error) {
        case EPIPE:
            return usbPipe;
        case ETIMEDOUT:
            return usbTimeout;
        case ESHUTDOWN:
            return usbNoDevice;
        case EOVERFLOW:
            return usbOverflow;
        default:
            return usbIo;
    }
}

/// Nothing if the driver was taken away before it could send the request.
std::optional<int> forward(const Descriptor& node, const usbtmc_request& setup,
                           std::span<std::uint8_t> reply) {
    usbtmc_ctrlrequest order{setup, reply.data()};
    const int came = ::ioctl(node.get(), USBTMC_IOCTL_CTRL_REQUEST, &order);
    if (came < 0 && errno == ENODEV) {
        return std::nullopt;
    }
    if (came < 0) {
        return logged("a request through usbtmc", resultOf(errno));
    }
    // The driver copies its whole buffer, even stale bytes after a short reply.
    std::ranges::fill(reply.subspan(std::min(reply.size(), static_cast<std::size_t>(came))), std::uint8_t{0});
    return came;
}

/// One look: binds the driver, if need be, and opens its file.
Result<Descriptor> look(const DeviceNode& device, int interface, Bound& driverOfOurs) {
    using Kind = Trouble::Kind;
    const int bound = driverOfOurs.bind();
    if (bound == ENODEV) {
        return Trouble{Kind::unplugged};
    }
    if (bound != 0 && bound != EBUSY) {
        return Trouble{Kind::roadNotInForce};
    }
    if (const auto driver = device.driver(interface); driver && !driver->empty() && *driver != roadDriver) {
        return Trouble{.kind = Kind::roadBlocked, .error = EBUSY, .words = *driver};
    }
    const auto node = nodeOf(device.path());
    Descriptor file(node ? ::open(node->c_str(), O_RDWR | O_CLOEXEC) : -1);
    if (!file) {
        return Trouble{
            .kind = Kind::roadBlocked, .where = node ? node->string() : "", .error = node ? errno : ENOENT};
    }
    return file;
}

/// Another driver, or a program, has the interface.
bool isHeld(const Trouble& obstacle) {
    return obstacle.kind == Trouble::Kind::roadBlocked && obstacle.error == EBUSY;
}

/// Whether waiting may help.
bool mayOpen(const Trouble& obstacle) {
    return obstacle.kind == Trouble::Kind::roadBlocked;
}

/// Looks until `use` has used the file, which it does not if the driver was taken away, or until it is
/// hopeless.
std::optional<Trouble> onceOpen(const DeviceNode& device, int interface, RoadPatience& patience,
                                const std::function<bool(const Descriptor&)>& use) {
    patience.begin(Clock::now());
    Bound bound(device, interface);
    std::optional<Clock::time_point> heldSince;
    while (true) {
        const auto file = look(device, interface, bound);
        if (file && use(*file)) {
            patience.passed();
            return std::nullopt;
        }
        const bool held = !file && isHeld(file.error());
        heldSince = held ? heldSince.value_or(Clock::now()) : std::optional<Clock::time_point>();
        if (!file && (held ? Clock::now() - *heldSince >= holderPatience : !mayOpen(file.error()))) {
            return file.error();
        }
        if (!patience.lasts(Clock::now())) {
            return file ? Trouble{.kind = Trouble::Kind::roadBlocked, .error = ENODEV} : file.error();
        }
        std::this_thread::sleep_for(betweenAttempts);
    }
}

}  // namespace

UsbtmcRoad::Outcome UsbtmcRoad::control(libusb_device_handle* handle, const DeviceNode& node, int interface,
                                        const usbtmc_request& setup, std::span<std::uint8_t> reply) {
    const Lent lent(handle, interface);
    Outcome outcome;
    outcome.obstacle = onceOpen(node, interface, patience_, [&](const Descriptor& file) {
        const auto came = forward(file, setup, reply);
        outcome.result = came.value_or(0);
        return came.has_value();
    });
    if (outcome.obstacle && outcome.obstacle->kind == Trouble::Kind::unplugged) {
        return {.result = usbNoDevice};
    }
    return outcome;
}

std::optional<Trouble> tryRoad(const DeviceNode& node, int interface) {
    RoadPatience patience;
    return onceOpen(node, interface, patience, [](const Descriptor&) { return true; });
}

}  // namespace kzq
