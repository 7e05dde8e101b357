#pragma once

#include <filesystem>

#include "platform/descriptor.h"

namespace kzq {

/// This user's folder, locked (flock) as long as the answer lives; `how` is LOCK_EX, with LOCK_NB if nobody
/// should wait. None if another run has it, or has renamed it meanwhile, or where folders cannot be locked.
/// Any thread.
Descriptor lockedFolder(const std::filesystem::path& path, int how);

}  // namespace kzq
