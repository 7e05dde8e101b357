#pragma once

#include <string>
#include <vector>

#include "operations/backup_changes.h"
#include "operations/listed_backups.h"
#include "ui/panels/backup_panel.h"

namespace kzq {

/// What stands between the pedal and a backup, in the words of the panels.
struct BackupComparison {
    std::vector<BackupChange> changes;
    bool pedalKnown = false;  ///< otherwise it has no loops in `changes`, which says nothing
    bool erases = false;      ///< of a restore: loops that are not in the backup
};

std::vector<BackupSlot> rowsOf(BackupPanel::Kind kind, const BackupComparison& comparison);
/// The legend under them.
std::vector<BackupPanel::Count> countsOf(BackupPanel::Kind kind, const BackupComparison& comparison);
/// Whether a restore would change anything, as far as that is known.
bool mayChange(const BackupComparison& comparison);

/// "16 Nov 2026, 19:20"; empty for a stamp that is none.
QString dayAndTime(const std::string& stamp);
/// For the list of backups in a folder of that name.
BackupOffer offerOf(const ListedBackup& backup, const QString& folder);

}  // namespace kzq
