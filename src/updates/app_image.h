#pragma once

#include <filesystem>
#include <string>

#include "updates/update_download.h"

namespace kzq {

/// Keeps the file `appImage` under "<name>.previous" as well, in place of an earlier one, which stays until
/// then. Returns whether it is kept; `reason` tells why not. Any thread.
bool keepPrevious(const std::filesystem::path& appImage, std::string& reason);

/// Replaces the AppImage by a verified download: at every moment its name stands for a whole file, the old or
/// the new. Nothing has changed when it fails, but that ".previous" may be there. Any thread.
bool replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download, std::string& reason);

}  // namespace kzq
