#pragma once

#include <string>
#include <vector>

#include "operations/generations.h"

namespace kzq {

/// One of the backups in a folder.
struct ListedBackup {
    Snapshot snapshot;
    std::string stamp;          ///< when it was made: see Stamp
    Result<BackupIndex> index;  ///< or why it cannot be used
};

/// The complete ones, the newest first. Blocks; any thread.
std::vector<ListedBackup> listedBackups(const Generations& generations);

}  // namespace kzq
