#include "audio/convert.h"

#include <cerrno>
#include <filesystem>
#include <utility>

#include "audio/conversion.h"
#include "audio/conversion_troubles.h"
#include "platform/log.h"
#include "platform/run_folder.h"
#include "platform/unique_name.h"
#include "words/words.h"

namespace kzq {
namespace {

/// Nothing, or what is wrong with the path.
std::optional<std::string> objectionTo(const std::string& path) {
    const std::filesystem::path place(path);
    if (!place.has_parent_path()) {
        return english("the path has no folder");
    }
    return place.extension().native().size() > 1
               ? std::nullopt
               : std::optional<std::string>(english("the name has no extension"));
}

void logRefusal(const std::string& path, const std::string& reason) {
    log(LogCategory::audio, asLogLine(path + ": not converted: " + reason));
}

Result<std::string> convert(const std::string& path, bool salvage) {
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error)) {
        logRefusal(path, "there is no such file");
        return Trouble{Trouble::Kind::notAFile, path, ENOENT};
    }
    if (const auto objection = objectionTo(path)) {
        logRefusal(path, *objection);
        return Trouble{Trouble::Kind::unsupported, path, 0, *objection};
    }
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        logRefusal(path, "there is no folder for temporary files");
        return Trouble{Trouble::Kind::noTemporaryFolder};
    }
    const std::string output = folder->string() + "/" + freshUuid() + ".wav";
    if (auto result = Conversion({.output = output, .salvage = salvage}).convert(path); !result) {
        return std::move(result.error());
    }
    return output;
}

}  // namespace

Result<std::string> convertedFile(const std::string& path) {
    return convert(path, false);
}

Result<std::string> salvagedFile(const std::string& path) {
    return convert(path, true);
}

std::optional<std::string> Wave::convertAudioFile(const std::string& path) {
    auto converted = convertedFile(path);
    return converted ? std::optional(std::move(*converted)) : std::nullopt;
}

}  // namespace kzq
