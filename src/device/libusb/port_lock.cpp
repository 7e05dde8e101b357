#include "device/libusb/port_lock.h"

#include <fcntl.h>
#include <libusb.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <mutex>
#include <utility>

#include "device/libusb/device_node.h"

namespace kzq {

namespace {

constexpr int deepest = 7;  // hubs behind one another

/// "3-1.2": bus 3, port 1, and port 2 of the hub there.
std::string portName(libusb_device* device) {
    std::array<std::uint8_t, deepest> ports{};
    const int count = libusb_get_port_numbers(device, ports.data(), deepest);
    std::string name = std::to_string(libusb_get_bus_number(device));
    for (int i = 0; i < count; ++i) {
        name += (i == 0 ? '-' : '.') + std::to_string(ports.at(static_cast<std::size_t>(i)));
    }
    return name;
}

}  // namespace

struct PortLock::Ports {
    std::mutex mutex;
    std::map<std::string, std::weak_ptr<void>> taken;
    std::map<std::string, std::shared_ptr<void>> awaited;  ///< which nothing else may keep
};

// Never destroyed: the thread that handles events outlives main().
PortLock::Ports& PortLock::ports() {
    static auto& instance = *new Ports;
    return instance;
}

std::filesystem::path PortLock::fileOf(const std::string& pedal) {
    // The one place that is the user's alone and ends with the session.
    const char* const place = std::getenv("XDG_RUNTIME_DIR");  // NOLINT(concurrency-mt-unsafe): never written
    const std::filesystem::path folder(place == nullptr ? "" : place);
    return folder.empty() ? folder : folder / ("kzq7306-" + pedal + ".lock");
}

std::optional<PortLock> PortLock::take(libusb_device* device) {
    auto name = portName(device);
    const std::lock_guard guard(ports().mutex);
    auto& taken = ports().taken[name];
    if (auto lock = taken.lock()) {
        return PortLock(std::move(name), std::move(lock));
    }
    auto file = std::make_shared<Descriptor>(
        ::open(fileOf(name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (*file && lockFile(*file) == EWOULDBLOCK) {
        return std::nullopt;
    }
    taken = file;
    return PortLock(std::move(name), std::move(file));
}

void PortLock::awaitReturn() const {
    const std::lock_guard guard(ports().mutex);
    ports().awaited[name_] = lock_;
}

void PortLock::returned() {
    const std::lock_guard guard(ports().mutex);
    ports().awaited.clear();
}

}  // namespace kzq
