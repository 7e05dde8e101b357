#pragma once

#include <filesystem>
#include <optional>

#include "ctl/sentences.h"

namespace kzq::ctl {

/// Why no files can be made in `folder`; nothing when they can. Leaves nothing behind.
std::optional<Explanation> folderObstacle(const std::filesystem::path& folder);

}  // namespace kzq::ctl
