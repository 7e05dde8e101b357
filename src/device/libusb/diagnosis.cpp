#include "device/libusb/diagnosis.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include "device/libusb/device_node.h"
#include "device/libusb/port_lock.h"
#include "device/libusb/usbtmc_road.h"
#include "device/wire.h"
#include "platform/system_reason.h"
#include "words/words.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& file) {
    std::error_code ignored;
    return fs::exists(file, ignored);
}

/// One of the things that the installed program for it does; empty without that program.
std::string bySetUp(const SystemPlaces& places, const std::string& what) {
    return isThere(places.setUp) ? "sudo " + places.setUp.string() + " " + what : std::string();
}

std::string pluggedAnew(const SystemPlaces& places) {
    const auto applied = bySetUp(places, "apply");
    return !applied.empty() ? applied
                            : "sudo udevadm control --reload && sudo udevadm trigger --action=add "
                              "--subsystem-match=usb --attr-match=idVendor=308a";
}

std::string installedAnew(const SystemPlaces& places) {
    const auto installed = bySetUp(places, "install");
    return !installed.empty() ? installed : installingCommand(places.program) + " && " + pluggedAnew(places);
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
        return {Trouble::Kind::noUdev, false, words("udev is running."), {}};
    }
    return {Trouble::Kind::noUdev,
            true,
            words("udev is not running, as in a container, so a pedal that is plugged in later is not "
                  "noticed. Plug "
                  "it in before starting the program, or run the program outside the container."),
            {}};
}

/// For those who are not at the computer: the group to which Debian gives such devices.
constexpr auto remoteRule =
    R"(echo 'ACTION!="remove", SUBSYSTEM=="usb|usbmisc", ATTRS{idVendor}=="308a", ATTRS{idProduct}=="0104", )"
    R"(GROUP="plugdev", MODE="0660"' | sudo tee /etc/udev/rules.d/71-kzq7306-remote.rules && )";

Finding permission(const SystemPlaces& places, const fs::path& pedal) {
    const auto node = deviceFile(pedal, places.nodes);
    if (::faccessat(AT_FDCWD, node.c_str(), R_OK | W_OK, AT_EACCESS) == 0) {
        return {Trouble::Kind::ruleMissing, false, words("You have permission to use the pedal."), {}};
    }
    std::error_code ignored;
    if (!fs::exists(node, ignored)) {
        return {Trouble::Kind::noDeviceFile,
                true,
                words("A pedal is on the USB bus, but %1 does not exist, as in a container without access to "
                      "/dev/bus/usb.",
                      node.string()),
                {}};
    }
    if (hasAccessRule(places.ruleFolders) && places.remote) {
        return {Trouble::Kind::ruleNotInForce, true,
                words("You do not have permission to use the pedal: you are logged in over the network, and "
                      "its udev "
                      "rule is for the user at the computer. The group plugdev can be allowed to use it."),
                remoteRule + pluggedAnew(places)};
    }
    if (hasAccessRule(places.ruleFolders)) {
        return {
            Trouble::Kind::ruleNotInForce, true,
            words("You do not have permission to use the pedal: its udev rule was not yet installed when the "
                  "pedal was plugged in, or you are not logged in at this computer."),
            pluggedAnew(places)};
    }
    return {Trouble::Kind::ruleMissing, true,
            words("You do not have permission to use the pedal: its udev rule is not installed."),
            installedAnew(places)};
}

/// `driver`, which is not the road's, has the pedal's interface.
Finding heldBy(const std::string& driver, const SystemPlaces& places, const fs::path& pedal) {
    if (driver == programDriver) {
        return {Trouble::Kind::heldByAnother, true,
                words("Another program is using the pedal. Find out which one and close it."),
                "sudo fuser -v " + deviceFile(pedal, places.nodes).string()};
    }
    return {Trouble::Kind::heldByDriver, true, words("The kernel driver %1 is holding the pedal.", driver),
            "echo " + pedal.filename().string() + ":1.0 | sudo tee " +
                (places.usbDrivers / driver / "unbind").string()};
}

Finding holder(const SystemPlaces& places, const fs::path& pedal) {
    const std::string driver = driverOf(pedal);
    const auto node = deviceFile(pedal, places.nodes);
    auto program = lockHolder(node, places.processes);
    if (!program) {  // one that waits for its pedal, which is restarting
        program = lockHolder(PortLock::fileOf(pedal.filename()), places.processes);
    }
    const bool ours = program && program->process == places.processes.self;
    if (program && !ours) {
        return {Trouble::Kind::heldByAnother,
                true,
                words("The pedal is in use by %1. Close that program, or wait until it has finished.",
                      program->words()),
                {},
                program->words()};
    }
    if (ours || driver.empty() || driver == roadDriver) {  // from which our programs take it back
        return {Trouble::Kind::heldByAnother, false, words("No other program is using the pedal."), {}};
    }
    return heldBy(driver, places, pedal);
}

/// What the driver has been told, and by which rules.
Finding road(const SystemPlaces& places) {
    if (driverKnowsPedal(places)) {
        return {Trouble::Kind::roadNotInstalled, false, words("Loops can be imported."), {}};
    }
    const bool hasHelper = std::ranges::any_of(
        places.helperFolders, [](const fs::path& folder) { return isThere(folder / "kzq7306-usbtmc"); });
    if (!hasHelper || !hasHelperRule(places.ruleFolders)) {
        return {
            Trouble::Kind::roadNotInstalled, true,
            words(
                "Loops cannot be imported: the kernel passes on the request for them only through its usbtmc "
                "driver, and the udev rules for that are not installed."),
            installedAnew(places)};
    }
    if (!isThere(places.usbDrivers / roadDriver)) {
        return {Trouble::Kind::roadNotInForce, true,
                words("Loops cannot be imported: the kernel's usbtmc driver is not loaded. Either the udev "
                      "rules were "
                      "not yet installed when the pedal was plugged in, or this kernel comes without the "
                      "driver, as "
                      "those made for virtual machines do."),
                (isThere(places.setUp) ? "" : "sudo modprobe usbtmc && ") + pluggedAnew(places)};
    }
    return {Trouble::Kind::roadNotInForce, true,
            words("Loops cannot be imported: the udev rules for it were not yet installed when the pedal was "
                  "plugged "
                  "in."),
            pluggedAnew(places)};
}

/// What the road turned out to be when it was taken.
Finding blockedRoad(const SystemPlaces& places, const Trouble& obstacle) {
    const auto file =
        obstacle.where.empty() ? words("the file of the kernel's usbtmc driver") : obstacle.where;
    const auto error = words(systemReason(obstacle.error).c_str());
    if (!hasRoadRule(places.ruleFolders)) {
        return {Trouble::Kind::roadNotInstalled, true,
                words("Loops cannot be imported: %1 could not be opened in time (%2), as the udev rule for "
                      "it is not "
                      "installed.",
                      file, error),
                installedAnew(places)};
    }
    if (places.remote) {
        return {Trouble::Kind::roadNotInForce, true,
                words("Loops cannot be imported: %1 could not be opened in time (%2), as you are logged in "
                      "over the "
                      "network and its udev rule is for the user at the computer.",
                      file, error),
                remoteRule + pluggedAnew(places)};
    }
    return {Trouble::Kind::roadNotInForce, true,
            words("Loops cannot be imported: %1 could not be opened in time (%2). The computer may have been "
                  "too busy: "
                  "try again. If that does not help, apply the rules again.",
                  file, error),
            pluggedAnew(places)};
}

/// As `road`, but by taking it; as far as it can be taken without disturbing anybody.
Finding triedRoad(const SystemPlaces& places, const fs::path& pedal) {
    auto told = road(places);
    DeviceNode node(deviceFile(pedal, places.nodes));
    if (told.present || !node || !node.lock() ||
        node.driver(pedalInterface).value_or(programDriver) == programDriver) {
        return told;
    }
    const auto obstacle = tryRoad(node, pedalInterface);
    if (!obstacle || obstacle->kind != Trouble::Kind::roadBlocked) {
        return told;
    }
    return obstacle->error == EBUSY ? heldBy(obstacle->words, places, pedal) : blockedRoad(places, *obstacle);
}

std::vector<Finding> findings(const SystemPlaces& places, bool trying) {
    std::vector<Finding> all;
    const auto pedal = findPedal(places);
    if (!pedal) {
        all.push_back(
            {Trouble::Kind::nothingOnBus, true,
             words("No pedal is on the USB bus. Check the cable and the pedal's power, then look again."),
             "lsusb -d 308a:0104"});
        all.push_back(udev(places));
        return all;
    }
    all.push_back({Trouble::Kind::nothingOnBus, false, words("A pedal is on the USB bus."), {}});
    all.push_back(permission(places, *pedal));
    all.push_back(holder(places, *pedal));
    const bool free = !all.back().present;
    all.push_back(udev(places));
    all.push_back(trying && free ? triedRoad(places, *pedal) : road(places));
    return all;
}

}  // namespace

std::vector<Finding> diagnose(const SystemPlaces& places) {
    return findings(places, false);
}

std::vector<Finding> diagnoseByTrying(const SystemPlaces& places) {
    return findings(places, true);
}

std::string removal(const SystemPlaces& places) {
    const auto commands = removingCommand(places.ruleFolders, places.helperFolders);
    const auto removed = bySetUp(places, "remove");
    return commands.empty() || removed.empty() ? commands : removed;
}

Trouble withRemedy(Trouble obstacle, const SystemPlaces& places) {
    if (obstacle.error == EBUSY) {
        const auto pedal = findPedal(places);
        const auto driver = obstacle.words.empty() ? programDriver : obstacle.words;
        return pedal ? asTrouble(heldBy(driver, places, *pedal)) : Trouble{Trouble::Kind::unplugged};
    }
    const auto finding =
        obstacle.kind == Trouble::Kind::roadBlocked ? blockedRoad(places, obstacle) : road(places);
    if (obstacle.kind != Trouble::Kind::roadBlocked && finding.kind == Trouble::Kind::roadNotInstalled) {
        obstacle.kind = Trouble::Kind::roadNotInstalled;
    }
    obstacle.remedy = finding.present ? finding.remedy : pluggedAnew(places);
    return obstacle;
}

}  // namespace kzq
