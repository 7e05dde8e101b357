#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "loops/frames.h"
#include "operations/backup_index.h"
#include "operations/outcome.h"

namespace kzq {

/// What is known of a loop of a backup beside its length.
enum class Compared : std::uint8_t {
    no,
    same,       ///< the pedal's was read and is the same
    different,  ///< it was read and is not
    damaged     ///< the backup's file is not what its index describes
};
/// What became of comparing it: see runDiff.
Compared comparedAs(const SlotOutcome& outcome);

/// A slot of the pedal beside that of a backup.
struct BackupChange {
    enum class Kind : std::uint8_t {
        nothing,  ///< no loop on either side
        same,
        sameLength,  ///< and not compared
        changed,
        onlyOnPedal,
        onlyInBackup,
        damaged
    };

    SlotNumber slot;
    Kind kind = Kind::nothing;
    std::optional<Frames> onPedal = {};
    std::optional<Frames> inBackup = {};
};

/// All slots, in their order.
std::vector<BackupChange> changesBetween(const Loops& loops, const BackupIndex& index,
                                         const std::map<SlotNumber, Compared>& known);

/// What a pedal holds once all of the backup is on it, beside what stays; `erases`: nothing does.
Frames afterRestore(const std::vector<BackupChange>& changes, bool erases);

}  // namespace kzq
