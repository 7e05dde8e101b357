#pragma once

#include <functional>
#include <vector>

#include "loops/export_info.h"
#include "operations/backup_folder.h"
#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// What makes the audio of the pedal's loops that of a backup.
struct RestorePlan {
    BackupFolder folder;
    BackupIndex index;
    Loops seen;                           ///< the pedal's table when its audio was compared
    std::vector<SlotNumber> same = {};    ///< already as in the backup
    std::vector<SlotNumber> erases = {};  ///< empty in the backup
    Exports writes = {};                  ///< from the backup's files
};

/// The index of a backup that can be restored. Errors: those of BackupFolder::index, backupIncomplete,
/// backupTooLong.
Result<BackupIndex> indexToRestore(const BackupFolder& folder);

/// Checks the backup's files, reads the pedal's loops of the same lengths and compares them; before that it
/// says in `total` how much it reads. Errors: those of the index; damaged: the file `where`; of the pedal's
/// table: tooLarge; the pedal's. A loop that cannot be read is one as well, and is reported.
Result<RestorePlan> planRestore(Pedal& pedal, const BackupFolder& folder,
                                const std::function<void(std::uint64_t bytes)>& total, const Events& events);

/// What this will write to the pedal and read back.
std::uint64_t bytesToMove(const RestorePlan& plan);

/// Erases first, so that there is room, then writes and reads back. Ends before its next change if any loop
/// that it has not changed itself is no longer as it was when it was compared (changed).
Outcome runRestore(Pedal& pedal, const RestorePlan& plan, const Events& events);

}  // namespace kzq
