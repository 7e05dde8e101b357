#pragma once

#include <filesystem>
#include <vector>

#include "device/finding.h"

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
    /// The running program: the rules and the helper that came with it are in a folder above.
    std::filesystem::path program = "/proc/self/exe";
};

/// Checks everything without opening the pedal, which may be in use. Findings that depend on a pedal are
/// left out if there is none. Reads a few small files, which takes milliseconds; any thread.
std::vector<Finding> diagnose(const SystemPlaces& places = {});

}  // namespace kzq
