#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/environment.h"
#include "ctl/sentences.h"
#include "updates/firmware_cache.h"
#include "updates/firmware_version.h"

namespace kzq::ctl {

/// The newest firmware that the maker's server has for the pedal.
struct FirmwareOffer {
    FirmwareEntry entry;      ///< its version text is one that can be printed
    FirmwareVersion version;  ///< never unknown
};

// Both block for the web and are for background threads; nothing comes with `problem` set.

std::optional<FirmwareOffer> fetchOffer(const Environment& environment, Explanation& problem);
/// The image of `entry`, verified: from the cache, or fetched and put there.
std::optional<FirmwareImage> fetchImage(const Environment& environment, const FirmwareEntry& entry,
                                        Explanation& problem);

/// The image in a file of the user's own, which nothing verifies: 1 to largestFirmware bytes.
std::optional<FirmwareImage> readImage(const std::filesystem::path& path, Explanation& problem);

/// A line of the release notes without what would move a terminal's cursor.
std::string noteText(std::string_view line);

}  // namespace kzq::ctl
