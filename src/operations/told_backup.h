#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "operations/backup.h"
#include "operations/restore.h"
#include "operations/told.h"

namespace kzq {

// What the window says of backups. Any thread.

/// What became of a backup of these loops in `folder`.
Told toldBackup(const BackupEnd& end, const std::vector<SlotNumber>& asked,
                const std::filesystem::path& folder);
/// What became of a restore.
Told toldRestore(const RestorePlan& plan, const Outcome& outcome);
/// Why a restore was not even begun.
Told toldNotRestored(const Trouble& why);
/// Why a backup cannot be used, behind a colon: "its index is damaged".
std::string backupReason(const Trouble& trouble);
/// What a restore changes, in order.
std::vector<SlotNumber> changesOf(const RestorePlan& plan);
/// What it takes from the pedal.
struct Losses {
    std::vector<SlotNumber> replaced;
    std::vector<SlotNumber> erased;
    bool any() const { return !replaced.empty() || !erased.empty(); }
};
Losses lossesOf(const RestorePlan& plan);
/// "Restoring replaces 1 loop and erases 2 loops on the 7306. Would you like to continue?"
std::string lossQuestion(const Losses& losses);

}  // namespace kzq
