#pragma once

#include <filesystem>
#include <string>

#include "updates/update_download.h"

namespace kzq {

/// Keeps the file `appImage` also as "<name>.previous", replacing an earlier one in one step. Returns whether
/// that worked; `reason` says why not. Any thread.
bool keepPrevious(const std::filesystem::path& appImage, std::string& reason);

/// Replaces the AppImage with a verified download: at every moment its name refers to a complete file, the
/// old or the new. If it fails, nothing has changed, except that ".previous" may exist. Any thread.
bool replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download, std::string& reason);

}  // namespace kzq
