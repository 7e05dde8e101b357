#include "audio/convert.h"

#include <filesystem>

#include "audio/conversion.h"
#include "audio/conversion_troubles.h"
#include "platform/log.h"
#include "platform/run_folder.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

/// Empty, or what is wrong with the path.
std::string objectionTo(const std::string& path) {
    const std::filesystem::path place(path);
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(place, error)) {
        return "there is no such file";
    }
    if (!place.has_parent_path()) {
        return "the path has no folder";
    }
    return place.extension().native().size() > 1 ? "" : "the file's name has no extension";
}

void logRefusal(const std::string& path, const std::string& reason) {
    log(LogCategory::audio, asLogLine(path + ": not converted: " + reason));
}

}  // namespace

std::optional<std::string> Wave::convertAudioFile(const std::string& path) {
    if (const auto objection = objectionTo(path); !objection.empty()) {
        logRefusal(path, objection);
        return std::nullopt;
    }
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        logRefusal(path, "there is no folder for temporary files");
        return std::nullopt;
    }
    const std::string output = folder->string() + "/" + freshUuid() + ".wav";
    const auto result = Conversion({.output = output}).convert(path);
    return result ? std::optional(output) : std::nullopt;
}

}  // namespace kzq
