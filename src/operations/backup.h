#pragma once

#include <optional>

#include "loops/status.h"
#include "operations/generations.h"
#include "operations/outcome.h"
#include "operations/pedal.h"
#include "platform/free_space.h"

namespace kzq {

/// A backup of all loops, which is to stand beside the earlier ones.
struct BackupOrder {
    Generations generations;
    Status status;  ///< of the pedal, when it was planned
    Stamp stamp = localStamp;
    FreeSpace freeSpace = kzq::freeSpace;
};

/// What this will read from the pedal.
std::uint64_t bytesToRead(const Loops& loops);

/// What became of a backup.
struct BackupEnd {
    Outcome outcome;
    /// The complete one; or what there is of it, for the next run. Nothing if nothing was saved.
    std::optional<Snapshot> snapshot;
};

/// Saves the loops, those first that no interrupted run has saved. All are read: a new recording may have the
/// same length. `kept` is what is bit for bit in the snapshot before, or was saved by an interrupted run, and
/// takes no further space. The snapshot is complete only if the pedal still has the table of the beginning
/// (changed). A loop that cannot be read, is longer than can be (tooLarge) or came with another length than
/// the table has (changedWhileRead) is left out; a file that cannot be written ends it, the index with the
/// folder in `where`, and a folder that cannot be made (folder).
BackupEnd runBackup(Pedal& pedal, const BackupOrder& order, const Events& events);

/// Whether a backup was ever completed from this account, of whatever pedal: they have no names. `home` is
/// the user's home folder. True also if nobody can say, as without one: only a look can show that none was.
bool wasEverBackedUp(const std::filesystem::path& home);
/// From now on one was. A failure is logged. Any thread.
void rememberBackup(const std::filesystem::path& home);

}  // namespace kzq
