#include "audio/converted_audio.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "audio/conversion.h"
#include "platform/run_folder.h"

namespace kzq {

std::optional<Bytes> convertedAudio(const std::filesystem::path& source, std::string& error) {
    const auto failed = [&](const std::string& why) {
        error = "Could not convert \"" + source.string() + "\". " + why;
        return std::nullopt;
    };
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        return failed("There is no folder for temporary files.");
    }
    const auto result = Conversion({.output = *folder}).convert(source);
    if (!result) {
        return failed(result.failure->sentence);
    }
    std::ifstream stream(result.path, std::ios::binary);
    const Bytes image{std::istreambuf_iterator<char>(stream), {}};
    std::error_code ignored;
    std::filesystem::remove(result.path, ignored);
    auto audio = isPerfectWave(image, 2) ? lpcm(image) : std::nullopt;
    return audio ? audio : failed("The converted file cannot be read.");
}

}  // namespace kzq
