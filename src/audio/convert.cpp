#include "audio/convert.h"

#include <filesystem>

#include "audio/conversion.h"
#include "audio/uuid.h"
#include "platform/run_folder.h"

namespace kzq {
namespace {

bool isConvertible(const std::string& path) {
    const std::filesystem::path place(path);
    std::error_code error;
    return !path.empty() && std::filesystem::exists(place, error) && place.has_parent_path() &&
           place.extension().native().size() > 1;
}

}  // namespace

std::optional<std::string> Wave::convertAudioFile(const std::string& path) {
    if (!isConvertible(path)) {
        return std::nullopt;
    }
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        return std::nullopt;
    }
    const std::string output = folder->string() + "/" + freshUuid() + ".wav";
    const auto result = Conversion({.output = output}).convert(path);
    return result ? std::optional(output) : std::nullopt;
}

}  // namespace kzq
