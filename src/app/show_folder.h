#pragma once

#include <filesystem>
#include <string>

#include "app/teller.h"

namespace kzq {

/// Of a file or folder, as Dialogs::openAddress takes it.
std::string addressOf(const std::filesystem::path& place);
/// "Show": the folder in the desktop's file manager.
Remedy showing(const AppEnvironment& environment, const std::filesystem::path& folder);

}  // namespace kzq
