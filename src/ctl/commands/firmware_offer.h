#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/pedal/environment.h"
#include "operations/pedal.h"
#include "updates/firmware_cache.h"

namespace kzq::ctl {

/// The newest firmware that the maker's server has.
struct FirmwareOffer {
    FirmwareEntry entry;                 ///< its version text is one that can be printed
    std::optional<FirmwareImage> image;  ///< verified; none when the pedal already runs this or a newer one
};

/// The firmware that the pedal runs, as it can be printed; empty: only its loader.
Result<std::string> installedFirmware(Pedal& pedal);

/// What the server has for a pedal that runs `installed` (empty: only its loader). An image is there, from
/// the cache or fetched and put there, or there is no offer. Blocks for the web.
Result<FirmwareOffer> fetchOffer(const Environment& environment, const std::string& installed);
/// The same for a command's thread, which does not wait any longer once the work has ended.
Result<FirmwareOffer> askForOffer(Pedal& pedal, const Environment& environment, const std::string& installed);

/// The image in a file of the user's own, which nothing verifies: 1 to largestFirmware bytes.
Result<FirmwareImage> readImage(const std::filesystem::path& path);

/// A line of the release notes without what would move a terminal's cursor.
std::string noteText(std::string_view line);

}  // namespace kzq::ctl
