#include "device/libusb/device_node.h"

#include <fcntl.h>
#include <libusb.h>
#include <linux/usbdevice_fs.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <thread>

namespace kzq {

namespace {

/// Programs that wait for a pedal take its lock for a moment, to see whether it is free.
constexpr int attempts = 10;
constexpr std::chrono::milliseconds betweenLooks{5};

std::filesystem::path fileOf(int bus, int address, const std::filesystem::path& nodes) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%03d/%03d", bus, address);
    return nodes / text.data();
}

int numberIn(const std::filesystem::path& file) {
    std::ifstream stream(file);
    int number = 0;
    stream >> number;
    return number;
}

/// What the kernel answers to an order about an interface; negative: an errno value.
int orderAbout(const Descriptor& file, int interface, int order) {
    usbdevfs_ioctl words{interface, order, nullptr};
    const int answer = ::ioctl(file.get(), USBDEVFS_IOCTL, &words);
    return answer < 0 ? -errno : answer;
}

}  // namespace

std::filesystem::path deviceFile(const std::filesystem::path& folder, const std::filesystem::path& nodes) {
    return fileOf(numberIn(folder / "busnum"), numberIn(folder / "devnum"), nodes);
}

DeviceNode::DeviceNode(const std::filesystem::path& path)
    : path_(path), file_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
    error_ = file_ ? 0 : errno;
}

DeviceNode::DeviceNode(libusb_device* device)
    : DeviceNode(fileOf(libusb_get_bus_number(device), libusb_get_device_address(device), usbNodes)) {}

int lockFile(const Descriptor& file) {
    for (int left = attempts; ::flock(file.get(), LOCK_EX | LOCK_NB) != 0; --left) {
        if (errno != EWOULDBLOCK || left == 1) {
            return errno;
        }
        std::this_thread::sleep_for(betweenLooks);
    }
    return 0;
}

std::optional<std::string> DeviceNode::driver(int interface) const {
    usbdevfs_getdriver question{};
    question.interface = static_cast<unsigned>(interface);
    if (::ioctl(file_.get(), USBDEVFS_GETDRIVER, &question) == 0) {
        return question.driver;
    }
    return errno == ENODATA ? std::optional(std::string()) : std::nullopt;
}

int DeviceNode::bindDriver(int interface) const {
    const int answer = orderAbout(file_, interface, USBDEVFS_CONNECT);
    return answer == 0 ? ENOENT : std::max(-answer, 0);  // it answers how many drivers it found
}

int DeviceNode::unbindDriver(int interface) const {
    return std::max(-orderAbout(file_, interface, USBDEVFS_DISCONNECT), 0);
}

}  // namespace kzq
