#pragma once

#include <filesystem>

namespace kzq {

struct AppParts;

/// Installs the firmware that is offered, if any, or that of a file. Main thread.
void beginOfferedFirmware(AppParts& parts);
void beginFirmware(AppParts& parts, const std::filesystem::path& file);

}  // namespace kzq
