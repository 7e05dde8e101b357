#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>

#include "loops/slot_number.h"

namespace kzq {

/// A loop staged for export to the pedal.
struct ExportInfo {
    std::filesystem::path source;  ///< the converted WAV working copy, not the user's own file
    std::uint8_t destination = 0;  ///< slot, 1 to 20
    bool occupied = false;         ///< the slot held a loop when this was staged: it will be overwritten
    std::uint64_t bytes = 0;       ///< of audio: the size of `source` minus its 44-byte header

    bool operator==(const ExportInfo&) const = default;
};

/// By slot.
using Exports = std::map<SlotNumber, ExportInfo>;

/// Nothing if the slot is not 1 to 20, the source is missing or there are no bytes.
std::optional<ExportInfo> exportInfoForLoop(std::uint8_t loop, bool occupied,
                                            const std::filesystem::path& source, std::uint64_t bytes);

}  // namespace kzq
