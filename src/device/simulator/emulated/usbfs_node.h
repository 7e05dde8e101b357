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
#include <string>

#include "device/simulator/simulated_pedal.h"
#include "platform/fixed.h"

struct usbdevfs_urb;

namespace kzq {

/// What the emulated kernel does by itself.
struct HostRules {
    /// Refuses requests whose recipient is "interface" unless wIndex names interface 0, the only one.
    std::atomic<bool> checksRecipient = false;
    /// How the next control request ends on the bus instead of reaching the pedal: a negative errno, 0 for
    /// none.
    std::atomic<int> nextControlStatus = 0;
};

/// How long a test waits for an expected event before it fails.
inline constexpr auto patience = std::chrono::seconds(30);

/// The file of one device in the emulated USB file system, from its arrival to its departure: takes the
/// transfers that libusb submits, lets the pedal answer them, and returns them. Its kernel calls come on
/// umockdev's thread, one at a time; all other members may be called from any thread.
class UsbfsNode : Fixed {
  public:
    UsbfsNode(simulator::SimulatedPedal& pedal, HostRules& rules);
    ~UsbfsNode();

    /// Creates the file `path`, which polls as writable exactly while a finished transfer can be reaped, as
    /// the kernel's does; a regular file always would, and libusb would poll it endlessly.
    void makeFile(const std::filesystem::path& path);
    UMockdevIoctlBase* handler() const { return handler_; }

    /// Ends all running transfers, as a reset does.
    void endTransfers();
    /// The system gives the interface to a driver (empty: to none), whoever has claimed it.
    void bind(const std::string& driver);
    /// The pedal left: ends all running transfers and refuses everything from now on.
    void leave();
    /// Whether so many transfers wait for the pedal's answer.
    bool waitUntilBlocked(std::size_t count);
    /// Transfers that have not been returned to libusb.
    std::size_t held();

  private:
    struct Unref {
        void operator()(void* object) const { g_object_unref(object); }
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

    int answer(UMockdevIoctlClient* client);
    void forgetEnded();
    int submit(UMockdevIoctlData* argument);
    int reap(UMockdevIoctlData* argument);
    int discard(UMockdevIoctlData* argument);
    int refuse(const Urb& urb) const;
    int tellDriver(UMockdevIoctlData* argument);
    int obey(UMockdevIoctlData* argument);
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
    std::string driver_;  ///< that has the interface; "usbfs" for a program
    std::unique_ptr<UMockdevIoctlClient, Unref> transfers_;  ///< the descriptor with the transfers
    Urbs submitted_;
    Urbs ended_;
    int file_ = -1;
    bool readable_ = false;
};

}  // namespace kzq
