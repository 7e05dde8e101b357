#include "loops/export_info.h"

#include "loops/facts.h"

namespace kzq {

std::optional<ExportInfo> exportInfoForLoop(std::uint8_t loop, bool occupied,
                                            const std::filesystem::path& source, std::uint64_t bytes) {
    if (loop == 0 || loop > loopSlots || source.empty() || bytes == 0) {
        return std::nullopt;
    }
    return ExportInfo{source, loop, occupied, bytes};
}

}  // namespace kzq
