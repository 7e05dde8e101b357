#include "device/libusb/diagnosis.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "device/libusb/udev_rules.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;

constexpr auto pluggedAnew =
    "sudo udevadm control --reload && sudo udevadm trigger --action=add --subsystem-match=usb "
    "--attr-match=idVendor=308a";
std::string installedAnew(const SystemPlaces& places) {
    return installingCommand(places.program) + " && " + pluggedAnew;
}

std::string firstWord(const fs::path& file) {
    std::ifstream stream(file);
    std::string word;
    stream >> word;
    return word;
}

std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        entries.push_back(entry->path());
    }
    return entries;
}

std::optional<fs::path> findPedal(const SystemPlaces& places) {
    for (const auto& device : entriesOf(places.usbDevices)) {
        if (firstWord(device / "idVendor") == "308a" && firstWord(device / "idProduct") == "0104") {
            return device;
        }
    }
    return std::nullopt;
}

fs::path nodeOf(const SystemPlaces& places, const fs::path& pedal) {
    const auto threeDigits = [](const std::string& word) {
        return std::string(word.size() < 3 ? 3 - word.size() : 0, '0') + word;
    };
    return places.nodes / threeDigits(firstWord(pedal / "busnum")) / threeDigits(firstWord(pedal / "devnum"));
}

/// The driver bound to the pedal's interface; usbfs means a program. Empty if it is free.
std::string driverOf(const fs::path& pedal) {
    std::error_code error;
    const auto interface = pedal / (pedal.filename().string() + ":1.0") / "driver";
    return fs::read_symlink(interface, error).filename().string();
}

bool driverKnowsPedal(const SystemPlaces& places) {
    std::ifstream stream(places.usbDrivers / "usbtmc" / "new_id");
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("308a 0104")) {
            return true;
        }
    }
    return false;
}

Finding udev(const SystemPlaces& places) {
    std::error_code ignored;
    if (fs::exists(places.udevControl, ignored)) {
        return {PedalTrouble::noUdev, false, "udev is running.", {}};
    }
    return {
        PedalTrouble::noUdev,
        true,
        "udev is not running, as in a container, so a pedal that is plugged in later is not noticed. Plug it "
        "in before starting the program, or run the program outside the container.",
        {}};
}

Finding permission(const SystemPlaces& places, const fs::path& pedal) {
    const auto node = nodeOf(places, pedal);
    if (::faccessat(AT_FDCWD, node.c_str(), R_OK | W_OK, AT_EACCESS) == 0) {
        return {PedalTrouble::ruleMissing, false, "You have permission to use the pedal.", {}};
    }
    std::error_code ignored;
    if (!fs::exists(node, ignored)) {
        return {PedalTrouble::fileMissing,
                true,
                "A pedal is on the USB bus, but " + node.string() +
                    " does not exist, as in a container without access to /dev/bus/usb.",
                {}};
    }
    if (hasAccessRule(places.ruleFolders)) {
        return {PedalTrouble::ruleNotInForce, true,
                "You do not have permission to use the pedal: its udev rule was not yet installed when the "
                "pedal was "
                "plugged in, or you are not logged in at this computer.",
                pluggedAnew};
    }
    return {PedalTrouble::ruleMissing, true,
            "You do not have permission to use the pedal: its udev rule is not installed.",
            installedAnew(places)};
}

Finding holder(const SystemPlaces& places, const fs::path& pedal) {
    const std::string driver = driverOf(pedal);
    if (driver.empty()) {
        return {PedalTrouble::heldByAnother, false, "No other program is using the pedal.", {}};
    }
    if (driver == "usbfs") {
        return {PedalTrouble::heldByAnother, true,
                "Another program is using the pedal. Find out which one and close it.",
                "sudo fuser -v " + nodeOf(places, pedal).string()};
    }
    return {PedalTrouble::heldByDriver, true, "The kernel driver " + driver + " is holding the pedal.",
            "echo " + pedal.filename().string() + ":1.0 | sudo tee " +
                (places.usbDrivers / driver / "unbind").string()};
}

Finding road(const SystemPlaces& places) {
    if (driverKnowsPedal(places)) {
        return {PedalTrouble::roadNotInstalled, false, "Loops can be imported.", {}};
    }
    std::error_code ignored;
    const bool hasHelper = std::ranges::any_of(places.helperFolders, [&](const fs::path& folder) {
        return fs::exists(folder / "kzq7306-usbtmc", ignored);
    });
    if (hasHelper && hasHelperRule(places.ruleFolders)) {
        return {PedalTrouble::roadNotInForce, true,
                "Loops cannot be imported: the udev rules for it were not yet installed when the pedal was "
                "plugged "
                "in, or the kernel has no usbtmc driver.",
                pluggedAnew};
    }
    return {PedalTrouble::roadNotInstalled, true,
            "Loops cannot be imported: the kernel passes on the request for them only through its usbtmc "
            "driver, and the udev rules for that are not installed.",
            installedAnew(places)};
}

}  // namespace

std::vector<Finding> diagnose(const SystemPlaces& places) {
    std::vector<Finding> findings;
    const auto pedal = findPedal(places);
    if (!pedal) {
        findings.push_back(
            {PedalTrouble::nothingOnBus, true,
             "No pedal is on the USB bus. Check the cable and the pedal's power, then look again.",
             "lsusb -d 308a:0104"});
        findings.push_back(udev(places));
        return findings;
    }
    findings.push_back({PedalTrouble::nothingOnBus, false, "A pedal is on the USB bus.", {}});
    findings.push_back(permission(places, *pedal));
    findings.push_back(holder(places, *pedal));
    findings.push_back(udev(places));
    findings.push_back(road(places));
    return findings;
}

}  // namespace kzq
