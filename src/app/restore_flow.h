#pragma once

#include <cstdint>
#include <functional>

#include "listening/shelf.h"
#include "loops/loops.h"
#include "operations/backup_index.h"
#include "operations/restore.h"

namespace kzq {

struct AppParts;
enum class Copies : std::uint8_t;

/// What is to be restored, and what the user saw of it.
struct RestoreWish {
    RestoreOrder order;  ///< with what was compared already
    BackupIndex index;   ///< of the backup as it was shown
    Loops seen;          ///< the pedal's table as it was shown
    Doubt since;         ///< when the first loop was compared
    std::function<Doubt()> doubt;
};

/// The press of "Restore". What the pedal holds is read afresh; nothing is changed if that is not what was
/// shown, which the panel then is again. Main thread.
void beginRestore(AppParts& parts, const RestoreWish& wish, Copies copies);

}  // namespace kzq
