#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <utility>

struct libusb_device;

namespace kzq {

/// The lock by which our programs leave a port of the bus to the one whose pedal is there, or is about to
/// return: for new firmware it leaves the bus and comes back as another device, with another file. It ends
/// with the program if not before. All of a program's locks on a port are one. Any thread.
class PortLock {
  public:
    /// The file with the lock; only the user's own programs can open it. `pedal` is its name in /sys, which
    /// is that of its port: "3-1.2". Empty if there is no place for it.
    static std::filesystem::path fileOf(const std::string& pedal);

    /// Nothing if another program has it. Where there is no place for such files, every port is free.
    static std::optional<PortLock> take(libusb_device* device);

    /// The pedal is about to restart: the program has the lock also when this has gone, until `returned`. A
    /// program has one pedal, so one that it has opened on another port has returned as well.
    void awaitReturn() const;
    static void returned();

  private:
    struct Ports;
    static Ports& ports();
    PortLock(std::string name, std::shared_ptr<void> lock) : name_(std::move(name)), lock_(std::move(lock)) {}

    std::string name_;  ///< of the pedal
    std::shared_ptr<void> lock_;
};

}  // namespace kzq
