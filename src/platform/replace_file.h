#pragma once

#include <filesystem>
#include <string>

#include "platform/bytes.h"
#include "platform/result.h"

namespace kzq {

/// Replaces the content of the file `name` in `folder` with `bytes`. A reader, even after a power loss, sees
/// the old file or the complete new one. Only a plain file is replaced: a link or a folder of that name stays
/// unchanged. On failure, which is a Draft's, nothing is left behind. Any thread.
Result<void> replaceFile(const std::filesystem::path& folder, const std::string& name, ByteView bytes);

}  // namespace kzq
