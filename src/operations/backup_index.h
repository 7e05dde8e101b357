#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "loops/slot_number.h"
#include "loops/status.h"
#include "platform/result.h"

namespace kzq {

/// One loop of a backup.
struct BackupEntry {
    std::string file = {};      ///< its WAV file, in the same folder
    std::uint32_t samples = 0;  ///< frames
    std::uint8_t tempo = 0;
    std::uint8_t channel = 0;
    std::string sha256 = {};  ///< of the audio, without the header; lower-case hexadecimal digits
    bool gone = false;        ///< the pedal was seen without it, after what the backup was made before

    bool operator==(const BackupEntry&) const = default;
    /// Whether this may be the pedal's loop: everything in the pedal's loop table is the same.
    bool describes(const Loop& loop) const {
        return samples == loop.samples && tempo == loop.tempo && channel == loop.channel;
    }
};

/// What a backup holds.
struct BackupIndex {
    std::string firmware;
    /// What of its loops came next, if it was made for that: "erase" or "replace". Empty: a backup.
    std::string before = {};
    std::map<SlotNumber, BackupEntry> loops = {};

    bool operator==(const BackupIndex&) const = default;
    /// Whether only the audio shows if the pedal's loop in that slot is still that of the backup.
    bool hasLengthOf(SlotNumber slot, const Loop& loop) const;
};

/// What the pedal sends of these loops.
std::uint64_t bytesToCompare(const BackupIndex& index, const Loops& loops);

std::string indexText(const BackupIndex& index);
/// backupForeign, backupNewer or backupDamaged, unless `text` is a valid backup index.
Result<BackupIndex> indexFromText(std::string_view text);

}  // namespace kzq
