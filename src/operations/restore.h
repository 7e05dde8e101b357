#pragma once

#include <functional>
#include <map>
#include <vector>

#include "loops/export_info.h"
#include "operations/backup_folder.h"
#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// What is to be had of a backup.
struct RestoreOrder {
    BackupFolder folder;
    std::vector<SlotNumber> slots = {};  ///< empty: all of it, and slots that it has no loop for are erased
    bool skipDamaged = false;            ///< loops whose files are damaged are left out
    /// Whether loops are as in the backup: they were compared before, and are not read again.
    std::map<SlotNumber, bool> compared = {};
};

/// What makes the audio of the pedal's loops that of a backup.
struct RestorePlan {
    BackupFolder folder;
    BackupIndex index;                     ///< of the loops that are asked for and good
    Loops seen;                            ///< the pedal's table when its audio was compared
    std::vector<SlotNumber> same = {};     ///< already as in the backup
    std::vector<SlotNumber> erases = {};   ///< empty in the backup
    Exports writes = {};                   ///< from the backup's files
    std::vector<SlotNumber> absent = {};   ///< asked for, but the backup does not have them
    std::vector<SlotNumber> damaged = {};  ///< left out
};

/// The index of a backup that can be restored, without the loops that are not asked for. An unfinished backup
/// will do if slots are named. Errors: those of BackupFolder::index, backupIncomplete, backupTooLong;
/// emptySlot: it has none of the loops that are asked for.
Result<BackupIndex> indexToRestore(const RestoreOrder& order);

/// Checks the backup's files, reads the pedal's loops of the same lengths and compares them, unless that was
/// done; before that it says in `total` how much it reads. Errors: those of the index; damaged: the file
/// `where`, unless such are skipped; of the pedal's table: tooLarge, noRoom; the pedal's. A loop that cannot
/// be read is one as well, and is reported.
Result<RestorePlan> planRestore(Pedal& pedal, const RestoreOrder& order,
                                const std::function<void(std::uint64_t bytes)>& total, const Events& events);

/// What this will write to the pedal and read back.
std::uint64_t bytesToMove(const RestorePlan& plan);

/// Erases first, so that there is room, then writes and reads back. Ends before its next change if any loop
/// that it has not changed itself is no longer as it was when it was compared (changed).
Outcome runRestore(Pedal& pedal, const RestorePlan& plan, const Events& events);

}  // namespace kzq
