#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

constexpr std::uint64_t largestManifest = std::uint64_t{1} << 20U;
constexpr std::uint64_t largestFirmware = 50'000'000;

/// One firmware image as the manifest describes it. A member that was missing, of another type or not
/// usable is empty.
struct FirmwareEntry {
    std::string name;        ///< a plain file name: never a path, "." or ".."
    std::string hash;        ///< MD5 in hexadecimal digits, as given
    std::uint64_t size = 0;  ///< 1 to largestFirmware; 0 means anything else
    std::string version;     ///< as given
    std::vector<std::string> changes;
    // Of a signed entry; see signedText.
    std::string sha256 = {};     ///< in hexadecimal digits
    std::uint64_t serial = 0;    ///< grows with every list that the maker publishes
    std::string signature = {};  ///< Ed25519, base64

    bool operator==(const FirmwareEntry&) const = default;
};

/// Whether the entry is sufficient to find and verify an image: its members are in the ranges given in
/// FirmwareEntry.
bool isComplete(const FirmwareEntry& entry);

/// The last entry, which is the newest, of a manifest in JSON. Nothing if the document is broken, not an
/// array, empty, or its last element is not an object with members. Any thread.
std::optional<FirmwareEntry> newestFirmwareEntry(std::span<const std::uint8_t> manifest);

}  // namespace kzq
