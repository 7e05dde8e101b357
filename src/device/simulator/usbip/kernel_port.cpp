#include "device/simulator/usbip/kernel_port.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

#include "platform/descriptor.h"

namespace kzq::simulator::usbip {

std::filesystem::path kernelHost() {
    return "/sys/devices/platform/vhci_hcd.0";
}

std::optional<unsigned> freePort(std::string_view status) {
    constexpr unsigned nothingPlugged = 4;
    std::istringstream lines{std::string(status)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string hub;
        unsigned port = 0;
        unsigned state = 0;
        if (words >> hub >> port >> state && hub == "hs" && state == nothingPlugged) {
            return port;
        }
    }
    return std::nullopt;
}

std::string plugIntoKernel(const std::filesystem::path& host, int socket, const DeviceRecord& record) {
    std::ifstream status(host / "status");
    if (!status) {
        return "this computer has no virtual USB host: load the kernel module vhci-hcd.";
    }
    const std::string text{std::istreambuf_iterator<char>(status), {}};
    const auto port = freePort(text);
    if (!port) {
        return "every port of the virtual USB host is in use.";
    }
    constexpr unsigned busShift = 16;
    std::ostringstream order;
    order << *port << ' ' << socket << ' ' << (record.bus << busShift | record.device) << ' ' << record.speed;
    const Descriptor file(::open((host / "attach").c_str(), O_WRONLY | O_CLOEXEC));
    const std::string words = order.str();
    if (!file || ::write(file.get(), words.data(), words.size()) != static_cast<ssize_t>(words.size())) {
        return std::string("the virtual USB host rejects the pedal: ") +
               std::generic_category().message(errno) + ".";
    }
    return {};
}

}  // namespace kzq::simulator::usbip
