#pragma once

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "device/finding.h"
#include "device/libusb/lock_holder.h"
#include "device/libusb/udev_rules.h"
#include "platform/trouble.h"

namespace kzq {

/// Where the diagnosis looks; tests supply their own.
struct SystemPlaces {
    std::filesystem::path usbDevices = "/sys/bus/usb/devices";
    std::filesystem::path usbDrivers = "/sys/bus/usb/drivers";
    std::filesystem::path nodes = "/dev/bus/usb";
    std::filesystem::path udevControl = "/run/udev/control";
    /// Where udev looks for rules, highest priority first.
    std::vector<std::filesystem::path> ruleFolders = {"/etc/udev/rules.d", "/run/udev/rules.d",
                                                      "/usr/local/lib/udev/rules.d", "/usr/lib/udev/rules.d",
                                                      "/lib/udev/rules.d"};
    std::vector<std::filesystem::path> helperFolders = {"/usr/lib/udev", "/lib/udev"};
    ProcessPlaces processes = {};
    /// The user is logged in over the network, so udev's rules for the user at the computer do not apply.
    bool remote = ::getenv("SSH_CONNECTION") != nullptr;  // NOLINT(concurrency-mt-unsafe): nobody writes it
    /// The running program: the rules and the helper that came with it are in a folder above.
    std::filesystem::path program = "/proc/self/exe";
    /// What sets the rules up in one word, if it is installed.
    std::filesystem::path setUp = installedSetUp();
};

/// Reads a few small files, which takes milliseconds, and leaves the pedal alone, which may be in use.
/// Findings that depend on a pedal are left out if there is none. Any thread.
std::vector<Finding> diagnose(const SystemPlaces& places = {});
/// The same, and tries what import needs, unless a program has the pedal. Takes seconds if it fails.
std::vector<Finding> diagnoseByTrying(const SystemPlaces& places = {});

/// The commands that undo what the remedies install; empty if nothing of it is there.
std::string removal(const SystemPlaces& places = {});

/// A request went neither to the pedal nor around the host: why that is, and what to do.
Trouble withRemedy(Trouble obstacle, const SystemPlaces& places = {});

}  // namespace kzq
