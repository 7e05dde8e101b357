#pragma once

#include "operations/backup_folder.h"
#include "operations/outcome.h"
#include "operations/pedal.h"

namespace kzq {

/// The pedal's loops and those of a backup, to be compared.
struct BackupDiff {
    BackupFolder folder;
    BackupIndex index;
    Loops loops;       ///< the pedal's
    bool read = true;  ///< the audio; otherwise only lengths are compared, which takes no time
};

/// What this will read from the pedal.
std::uint64_t bytesToRead(const BackupDiff& diff);

/// Each slot that has a loop on either side: unchanged, sameLength (where nothing is read), or with a
/// trouble: damaged (its file is `where`), why it could not be read, or differs; its `words` are "recorded"
/// (it is not in the backup), "erased" (it is only there) or "changed". Another tempo or channel does not
/// count, as no restore can bring it back. Writes nothing.
Outcome runDiff(Pedal& pedal, const BackupDiff& diff, const Events& events);

}  // namespace kzq
