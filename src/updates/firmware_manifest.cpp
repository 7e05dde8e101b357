#include "updates/firmware_manifest.h"

#include <nlohmann/json.hpp>

namespace kzq {
namespace {

using nlohmann::json;

/// All whole numbers up to this one are the same in JSON's floating point.
constexpr std::uint64_t largestSerial = std::uint64_t{1} << 53U;

std::string textOf(const json& entry, const char* key) {
    const auto found = entry.find(key);
    return found != entry.end() && found->is_string() ? found->get<std::string>() : std::string{};
}

/// Whether `name` names a file in a folder and nothing else.
bool isFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

/// 1 to `largest`, else 0. Whole numbers only, in any notation; a rounded one would be a guess.
std::uint64_t numberOf(const json& entry, const char* key, std::uint64_t largest) {
    const auto found = entry.find(key);
    if (found == entry.end() || !found->is_number()) {
        return 0;
    }
    const auto number = found->get<double>();
    if (!(number >= 1 && number <= static_cast<double>(largest))) {
        return 0;
    }
    const auto whole = static_cast<std::uint64_t>(number);
    return static_cast<double>(whole) == number ? whole : 0;
}

std::vector<std::string> changesOf(const json& entry) {
    std::vector<std::string> changes;
    const auto found = entry.find("changes");
    if (found == entry.end() || !found->is_array()) {
        return changes;
    }
    for (const auto& change : *found) {
        if (change.is_string()) {
            changes.push_back(change.get<std::string>());
        }
    }
    return changes;
}

}  // namespace

bool isComplete(const FirmwareEntry& entry) {
    return isFileName(entry.name) && !entry.hash.empty() && entry.size > 0 && entry.size <= largestFirmware;
}

std::optional<FirmwareEntry> newestFirmwareEntry(std::span<const std::uint8_t> manifest) {
    const auto document = json::parse(manifest.begin(), manifest.end(), nullptr, false);
    if (!document.is_array() || document.empty()) {
        return std::nullopt;
    }
    const json& last = document.back();
    if (!last.is_object() || last.empty()) {
        return std::nullopt;
    }
    FirmwareEntry entry{textOf(last, "name"),
                        textOf(last, "hash"),
                        numberOf(last, "size", largestFirmware),
                        textOf(last, "version"),
                        changesOf(last),
                        textOf(last, "sha256"),
                        numberOf(last, "serial", largestSerial),
                        textOf(last, "signature")};
    if (!isFileName(entry.name)) {
        entry.name.clear();
    }
    return entry;
}

}  // namespace kzq
