#pragma once

#include <filesystem>

namespace kzq {

struct AppParts;

/// The press of "Back Up": all loops of the pedal are saved beside the earlier backups in `folder`, which is
/// made if it is not there. Main thread.
void beginBackup(AppParts& parts, const std::filesystem::path& folder);

}  // namespace kzq
