#pragma once

#include "loops/status.h"
#include "operations/backup_folder.h"
#include "operations/outcome.h"
#include "operations/pedal.h"
#include "platform/free_space.h"

namespace kzq {

/// What is to be done for a backup of all loops.
struct BackupPlan {
    BackupFolder folder;
    Status status;          ///< of the pedal, when it was planned
    bool finished = false;  ///< the folder holds a whole backup, which is only compared with
    BackupIndex index;      ///< that of the whole backup; or what earlier runs saved and is still good
    FreeSpace freeSpace = kzq::freeSpace;
};

/// The pedal's table, and what is in the folder. Errors: the pedal's, or those of BackupFolder::index.
Result<BackupPlan> planBackup(Pedal& pedal, const BackupFolder& folder);

/// What this will read from the pedal.
std::uint64_t bytesToRead(const BackupPlan& plan);

/// Saves the loops, those first that are not in the folder yet. All are read: a new recording may have the
/// same length. The backup is whole once its index is there, which is written only if the pedal still has the
/// table of the beginning (changed). A loop that cannot be read, is longer than can be (tooLarge) or came
/// with another length than the table has (changedWhileRead) is left out; a file that cannot be written ends
/// it, the index with the folder in `where`.
///
/// With a whole backup it writes nothing and compares each slot that has a loop on either side. What is
/// wrong with a slot is then damaged (its file is `where`), why it could not be read, or differs: `words` is
/// "recorded" (and is not in the backup), "erased" (and is still there) or "changed". A different tempo or
/// channel does not count, as no restore can bring it back.
Outcome runBackup(Pedal& pedal, BackupPlan plan, const Events& events);

}  // namespace kzq
