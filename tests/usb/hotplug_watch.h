#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "device/libusb/libusb_port.h"
#include "device/simulator/emulated/usbfs_node.h"
#include "device/wire.h"

namespace kzq {

/// The thread that handles libusb's events, for the rest of the process.
inline void handleEventsInTheBackground() {
    static const bool started = [] {
        // Never destroyed: its thread is still inside it when main() ends.
        static auto& port = *new LibusbPort;  // NOLINT(cppcoreguidelines-owning-memory)
        port.initialize();
        std::thread([] {
            while (true) {
                port.handleEvents();
            }
        }).detach();
        return true;
    }();
    static_cast<void>(started);
}

/// Records the events of a registration.
class HotplugWatch {
  public:
    struct Seen {
        UsbDevicePointer device;
        HotplugEvent event = HotplugEvent::arrived;
        std::thread::id thread;
    };

    UsbResult watch(UsbPort& port, HotplugEvent event, bool enumerate) {
        const HotplugFilter filter{pedalVendor, pedalProduct, HotplugFilter::anyClass, enumerate};
        return port.registerHotplug(event, filter, [this](const UsbDevicePointer& device, HotplugEvent seen) {
            const std::lock_guard lock(mutex_);
            seen_.push_back({device, seen, std::this_thread::get_id()});
            changed_.notify_all();
            return 0;
        });
    }

    bool waitFor(std::size_t count) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, patience, [&] { return seen_.size() >= count; });
    }

    std::vector<Seen> seen() {
        const std::lock_guard lock(mutex_);
        return seen_;
    }
    void forget() {
        const std::lock_guard lock(mutex_);
        seen_.clear();
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Seen> seen_;
};

}  // namespace kzq
