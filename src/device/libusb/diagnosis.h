#pragma once

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kzq {

/// Where the diagnosis looks; tests build a system of their own.
struct SystemPlaces {
    std::filesystem::path usbDevices = "/sys/bus/usb/devices";
    std::filesystem::path usbDrivers = "/sys/bus/usb/drivers";
    std::filesystem::path nodes = "/dev/bus/usb";
    std::filesystem::path udevControl = "/run/udev/control";
    std::vector<std::filesystem::path> ruleFolders = {"/etc/udev/rules.d", "/run/udev/rules.d",
                                                      "/usr/local/lib/udev/rules.d", "/usr/lib/udev/rules.d",
                                                      "/lib/udev/rules.d"};
    std::vector<std::filesystem::path> helperFolders = {"/usr/lib/udev", "/lib/udev"};
};

/// Why a pedal that a user misses is not there, or cannot do all that it should.
enum class PedalTrouble {
    nothingOnBus,
    ruleMissing,       ///< no permission, and no rule that would give it
    ruleNotInForce,    ///< no permission, but there is a rule: the pedal was there before it
    heldByAnother,     ///< a program has the interface
    heldByDriver,      ///< a driver of the kernel has it
    noUdev,            ///< as in a container: pedals that come later are not noticed
    roadNotInstalled,  ///< import is refused: the usbtmc rules or their helper are missing
    roadNotInForce     ///< import is refused: they are there, but the pedal was there before them
};

struct Finding {
    PedalTrouble trouble;
    bool present = false;  ///< otherwise all is well in this respect
    std::string sentence;  ///< what was found, in either case
    std::string mend;      ///< a command for a shell that mends it; empty when there is none
};

/// Looks at everything, without opening the pedal: it may be in use. Findings that depend on a pedal are left
/// out when there is none. In the order in which they are best mended; takes milliseconds.
std::vector<Finding> diagnose(const SystemPlaces& places = {});

/// The one to tell first; nothing when all is well.
inline std::optional<Finding> firstTrouble(const std::vector<Finding>& findings) {
    const auto found = std::ranges::find_if(findings, &Finding::present);
    return found == findings.end() ? std::nullopt : std::optional(*found);
}

}  // namespace kzq
