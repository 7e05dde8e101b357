#pragma once

#include <filesystem>

#include "updates/update_download.h"

namespace kzq {

/// Keeps the file `appImage` also as "<name>.previous", replacing an earlier one in one step. Any thread.
Result<void> keepPrevious(const std::filesystem::path& appImage);

/// Replaces the AppImage with a verified download: at every moment its name refers to a complete file, the
/// old or the new. If it fails, nothing has changed, except that ".previous" may exist. Any thread.
Result<void> replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download);

}  // namespace kzq
