#pragma once

#include <filesystem>

#include "app/teller.h"

namespace kzq {

/// "Show": the folder in the desktop's file manager.
Remedy showing(const AppEnvironment& environment, const std::filesystem::path& folder);

}  // namespace kzq
