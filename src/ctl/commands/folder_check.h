#pragma once

#include <filesystem>
#include <optional>

#include "platform/trouble.h"

namespace kzq::ctl {

/// Why no files can be made in `folder`, which may be missing as long as the one around it is there; nothing
/// when they can. `words` is what cannot be created: "folder" or "files". Leaves nothing behind.
std::optional<Trouble> folderTrouble(const std::filesystem::path& folder);

/// Makes `folder` if it is missing, now that there is something to put into it.
void makeFolder(const std::filesystem::path& folder);

}  // namespace kzq::ctl
