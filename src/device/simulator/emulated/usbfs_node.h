#pragma once

#include <umockdev.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <list>
#include <memory>
#include <mutex>
#include <span>

#include "device/simulator/simulated_pedal.h"

struct usbdevfs_urb;

namespace kzq {

/// What the emulated kernel does of its own accord.
struct HostRules {
    /// Refuses requests whose recipient reads "interface" unless wIndex names interface 0, the only one there
    /// is.
    std::atomic<bool> checksRecipient = false;
    /// How the next control request ends on the bus instead of reaching the pedal: a negative errno, 0 for
    /// none.
    std::atomic<int> nextControlStatus = 0;
};

/// How long a test waits for what must happen before it fails.
inline constexpr auto patience = std::chrono::seconds(30);

/// The file of one device in the emulated USB file system, from its arrival to its departure: takes the
/// transfers that libusb submits, lets the pedal answer them, and hands them back. Its calls of the kernel
/// come on umockdev's thread, one at a time; all other members may be called from any thread.
class UsbfsNode {
  public:
    UsbfsNode(simulator::SimulatedPedal& pedal, HostRules& rules);
    UsbfsNode(const UsbfsNode&) = delete;
    UsbfsNode& operator=(const UsbfsNode&) = delete;
    UsbfsNode(UsbfsNode&&) = delete;
    UsbfsNode& operator=(UsbfsNode&&) = delete;
    ~UsbfsNode();

    /// Makes the file `path`, which polls as writable exactly while a transfer can be taken back,
    /// as the kernel's does; a regular one would always, and libusb would ask without end.
    void makeFile(const std::filesystem::path& path);
    UMockdevIoctlBase* handler() const { return handler_; }

    /// Ends what is under way, as a reset does.
    void endTransfers();
    /// The pedal left: ends what is under way and refuses everything from now on.
    void leave();
    /// Whether a transfer waits for the pedal's answer, which it may take some time to do.
    bool waitUntilBlocked();

  private:
    struct Unref {
        void operator()(UMockdevIoctlData* data) const { g_object_unref(data); }
    };
    using Data = std::unique_ptr<UMockdevIoctlData, Unref>;
    struct Urb {
        Data memory;
        Data buffer;
        bool waits = false;  ///< the pedal has no answer yet
        bool ended = false;

        usbdevfs_urb& raw() const;
        std::span<std::uint8_t> bytes() const;
    };
    using Urbs = std::list<Urb>;
    using Lock = std::unique_lock<std::mutex>;

    static gboolean handle(UMockdevIoctlBase* base, UMockdevIoctlClient* client, gpointer self);
    static void vanish(UMockdevIoctlBase* base, UMockdevIoctlClient* client, gpointer self);

    int answer(UMockdevIoctlClient* client);
    int submit(UMockdevIoctlData* argument);
    int reap(UMockdevIoctlData* argument);
    int discard(UMockdevIoctlData* argument);
    int refuse(const Urb& urb) const;
    void ask(Urbs::iterator urb);
    simulator::TransferResult transfer(const Urb& urb);
    simulator::TransferResult control(std::span<std::uint8_t> packet);

    void end(Urbs::iterator urb, int status, std::size_t actual);
    void endAll(int status);
    void setReadable(bool readable);

    simulator::SimulatedPedal& pedal_;
    HostRules& rules_;
    UMockdevIoctlBase* handler_;

    std::mutex mutex_;
    std::condition_variable changed_;
    bool gone_ = false;
    Urbs submitted_;
    Urbs ended_;
    int file_ = -1;
    bool readable_ = false;
};

}  // namespace kzq
