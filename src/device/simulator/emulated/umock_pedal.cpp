#include "device/simulator/emulated/umock_pedal.h"

#include <array>
#include <cstdio>
#include <stdexcept>
#include <vector>

namespace kzq {

using simulator::BusChange;

namespace {

constexpr auto port = "/devices/pci0000:00/0000:00:14.0/usb1/1-1";

// The device and its one configuration, in hexadecimal as umockdev expects: a vendor-class interface with
// bulk endpoints 0x81 and 0x02 of 512 bytes.
constexpr auto descriptors =
    "1201000200000040"
    "8A30040100010000"
    "0001"
    "0902200001010080FA"
    "0904000002FF000000"
    "07058102000200"
    "07050202000200";

std::string description(unsigned busNumber, unsigned address, const std::string& name) {
    std::array<char, 1024> text{};
    std::snprintf(text.data(), text.size(),
                  "P: %s\nE: DEVTYPE=usb_device\nE: SUBSYSTEM=usb\nE: DEVNAME=/dev/%s\nE: BUSNUM=%03u\n"
                  "E: DEVNUM=%03u\nE: PRODUCT=308a/104/100\nA: busnum=%u\\n\nA: devnum=%u\\n\n"
                  "A: bConfigurationValue=1\\n\nA: speed=480\\n\nA: idVendor=308a\\n\nA: idProduct=0104\\n\n"
                  "H: descriptors=%s\n",
                  port, name.c_str(), busNumber, address, busNumber, address, descriptors);
    return text.data();
}

std::string systemPath() {
    return std::string("/sys") + port;
}

}  // namespace

/// One per process: libusb listens to the first one it sees.
struct UmockPedal::Bus {
    Bus() : testbed(umockdev_testbed_new()) {}

    std::filesystem::path root() const {
        gchar* const text = umockdev_testbed_get_root_dir(testbed);
        std::filesystem::path path = text;
        g_free(text);
        return path;
    }

    std::mutex mutex;
    UMockdevTestbed* testbed;
    unsigned arrivals = 0;
    // Handles of departed pedals still ask.
    std::vector<std::shared_ptr<UsbfsNode>> nodes;
};

UmockPedal::Bus& UmockPedal::bus() {
    // Never destroyed, since libusb's threads outlive main(); its folder is still removed.
    static auto& instance = *new Bus;  // NOLINT(cppcoreguidelines-owning-memory)
    struct Sweeper {
        ~Sweeper() { std::filesystem::remove_all(instance.root()); }
    };
    static const Sweeper sweeper;
    return instance;
}

UmockPedal::UmockPedal(simulator::SimulatedPedal& pedal) : pedal_(pedal) {
    bus();
    pedal_.setListener([this](BusChange news) { change(news); });
    if (pedal_.isPlugged()) {
        arrive();
    }
}

UmockPedal::~UmockPedal() {
    pedal_.unplug();
    pedal_.setListener({});
}

void UmockPedal::setPermitted(bool permitted) {
    using std::filesystem::perms;
    const std::lock_guard lock(mutex_);
    const auto root = bus().root();
    // umockdev uses its own socket before it has the file's answer.
    permissions(root, perms::owner_all | perms::group_exec | perms::others_exec);
    permissions(root / "ioctl" / "dev" / name_, perms::all);
    permissions(root / "dev" / name_, permitted ? perms::all : perms::none);
}

void UmockPedal::bind(const std::string& driver) {
    const std::lock_guard lock(mutex_);
    node_->bind(driver);
}

std::shared_ptr<UsbfsNode> UmockPedal::node() {
    const std::lock_guard lock(mutex_);
    return node_;
}

bool UmockPedal::waitUntilBlocked(std::size_t count) {
    const auto there = node();
    return there && there->waitUntilBlocked(count);
}

std::size_t UmockPedal::held() {
    const auto there = node();
    return there ? there->held() : 0;
}

void UmockPedal::change(BusChange change) {
    if (change == BusChange::arrived) {
        arrive();
        return;
    }
    const std::lock_guard lock(mutex_);
    if (!node_) {
        return;
    }
    if (change == BusChange::reset) {
        node_->endTransfers();
        return;
    }
    node_->leave();
    node_.reset();
    const std::lock_guard busLock(bus().mutex);
    umockdev_testbed_uevent(bus().testbed, systemPath().c_str(), "remove");
    umockdev_testbed_remove_device(bus().testbed, systemPath().c_str());
    std::filesystem::remove(bus().root() / "dev" / name_);
}

void UmockPedal::arrive() {
    const std::lock_guard lock(mutex_);
    const std::lock_guard busLock(bus().mutex);
    // A bus has addresses up to 127; the first is its own.
    const unsigned busNumber = 1 + bus().arrivals / 126;
    const unsigned address = 2 + bus().arrivals++ % 126;
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "bus/usb/%03u/%03u", busNumber, address);
    name_ = name.data();
    node_ = bus().nodes.emplace_back(std::make_shared<UsbfsNode>(pedal_, rules_));
    // All of this before umockdev announces the arrival, because libusb opens the file at once.
    const auto file = bus().root() / "dev" / name_;
    std::filesystem::create_directories(file.parent_path());
    node_->makeFile(file);
    if (!umockdev_testbed_attach_ioctl(bus().testbed, ("/dev/" + name_).c_str(), node_->handler(), nullptr) ||
        !umockdev_testbed_add_from_string(bus().testbed, description(busNumber, address, name_).c_str(),
                                          nullptr)) {
        throw std::runtime_error("umockdev did not accept the device");
    }
}

}  // namespace kzq
