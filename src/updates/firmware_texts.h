#pragma once

#include <string>
#include <vector>

#include "updates/firmware_version.h"

namespace kzq {

/// The start of each line of the release notes: a bullet and a tab.
inline constexpr const char* notesBullet = "\u2022\t";

/// "KZQ7306 1.6 is now available—you have 1.5. Would you like to install it now?" in UTF-8. Numbers are plain
/// decimal, so that 2.07 shows as 2.7.
std::string firmwareHeadline(const FirmwareVersion& offered, const FirmwareVersion& device);

/// The release notes in UTF-8: a bulleted line per change; a lone bullet if there are none.
std::string firmwareNotes(const std::vector<std::string>& changes);

}  // namespace kzq
