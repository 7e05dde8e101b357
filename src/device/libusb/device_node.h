#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/descriptor.h"

struct libusb_device;

namespace kzq {

/// Where the devices' files are.
inline constexpr auto usbNodes = "/dev/bus/usb";
/// The file, below `nodes`, of the device whose folder in /sys is given.
std::filesystem::path deviceFile(const std::filesystem::path& folder,
                                 const std::filesystem::path& nodes = usbNodes);

/// The kernel's name for a program that has an interface, and that of the driver on the way around for
/// requests that the host refuses (usbtmc_road.h).
inline constexpr auto programDriver = "usbfs";
inline constexpr auto roadDriver = "usbtmc";

/// Locks a file among programs, for as long as this descriptor is open. Waits a little for programs that only
/// look. 0 or an errno value: EWOULDBLOCK if another descriptor has the lock.
int lockFile(const Descriptor& file);

/// A descriptor of our own of a device's file in /dev, beside libusb's. It carries the lock by which our
/// programs leave a pedal to the one that has it; the lock ends with the descriptor, however the program
/// ends.
class DeviceNode {
  public:
    DeviceNode() = default;
    explicit DeviceNode(const std::filesystem::path& path);
    explicit DeviceNode(libusb_device* device);

    explicit operator bool() const { return static_cast<bool>(file_); }
    /// Why it could not be opened: an errno value.
    int error() const { return error_; }

    /// Whether the device is now ours among our programs. Another descriptor of this program counts as
    /// another program.
    bool lock() { return lockFile(file_) == 0; }
    /// The driver that has the interface, `programDriver` for a program; empty for none. Nothing if the
    /// device is gone.
    std::optional<std::string> driver(int interface) const;
    /// Has the kernel bind its driver to a free interface, or unbind it. 0 or an errno value: EBUSY if there
    /// is one already, ENOENT if none knows the device, ENODATA if there was none.
    int bindDriver(int interface) const;
    int unbindDriver(int interface) const;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
    Descriptor file_;
    int error_ = 0;
};

}  // namespace kzq
