#include "updates/update_floor.h"

#include <charconv>
#include <system_error>

#include "platform/plain_file.h"
#include "platform/replace_file.h"
#include "updates/app_version.h"
#include "updates/firmware_cache.h"
#include "updates/update_log.h"

namespace kzq {
namespace {

/// Of the list's host and port.
std::string serialFile(const std::string& list) {
    const auto scheme = list.find("://");
    const auto host = scheme == std::string::npos ? 0 : scheme + 3;
    return "firmware-serial-" + list.substr(host, list.find('/', host) - host);
}

constexpr const char* versionFile = "software-version";
constexpr std::uint64_t longest = 100;

}  // namespace

UpdateFloor::UpdateFloor(const std::filesystem::path& home) : folder_(updatesFolderIn(home)) {}

std::uint64_t UpdateFloor::firmwareSerial(const std::string& list) const {
    const auto text = read(serialFile(list));
    std::uint64_t serial = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), serial);
    return result.ec == std::errc() ? serial : 0;
}

void UpdateFloor::raiseFirmwareSerial(const std::string& list, std::uint64_t serial) const {
    if (serial > firmwareSerial(list)) {
        write(serialFile(list), std::to_string(serial));
    }
}

std::string UpdateFloor::softwareVersion() const {
    const auto text = read(versionFile);
    return isAppVersion(text) ? text : std::string();
}

void UpdateFloor::raiseSoftwareVersion(const std::string& version) const {
    const auto present = softwareVersion();
    const auto order = compareAppVersions(version, present.empty() ? "0" : present);
    if (order && std::is_gt(*order)) {
        write(versionFile, version);
    }
}

std::string UpdateFloor::read(const std::string& name) const {
    if (folder_.empty()) {
        return {};
    }
    const auto bytes = readPlainFile(folder_ / name, longest, Links::refused);
    return bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
}

void UpdateFloor::write(const std::string& name, const std::string& text) const {
    if (folder_.empty()) {
        return;
    }
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    const auto written =
        replaceFile(folder_, name, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    if (!written) {
        logUpdates("not remembered: " + name + " " + text);
    }
}

}  // namespace kzq
