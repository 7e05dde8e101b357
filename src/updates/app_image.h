#pragma once

#include <filesystem>

#include "platform/bytes.h"
#include "updates/update_download.h"

namespace kzq {

/// Whether `file` begins as an AppImage does: a program for Linux with the mark of type 2.
bool isAppImage(ByteView file);

/// Keeps the file `appImage` also as "<name>.previous", replacing an earlier one in one step. Any thread.
Result<void> keepPrevious(const std::filesystem::path& appImage);

/// Makes a verified download ready to be tried where it is, as a program that this user can start. Any
/// thread.
Result<void> sealAppImage(const std::filesystem::path& appImage, UpdateDownload& download);

/// Replaces the AppImage with a verified download: at every moment its name refers to a complete file, the
/// old or the new. If it fails, nothing has changed, except that ".previous" may exist. Any thread.
Result<void> replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download);

/// Where there is no FUSE an AppImage is started with --appimage-extract-and-run, and then runs from the
/// folder that its runtime has unpacked. If `program`, this one, does, AppImages that it starts do the same.
/// Main thread, before there are others.
void startOthersUnpackedAs(const std::filesystem::path& program);

}  // namespace kzq
