#include "audio/converted_audio.h"

#include <optional>
#include <system_error>
#include <utility>

#include "audio/conversion.h"
#include "platform/plain_file.h"
#include "platform/run_folder.h"
#include "words/words.h"

namespace kzq {
namespace {

/// Without its header, so that a long loop is in memory only once.
std::optional<Bytes> samplesOf(const std::filesystem::path& file) {
    const auto opened = openPlainFile(file, Links::refused);
    if (!opened || opened->size < waveHeaderSize) {
        return std::nullopt;
    }
    Bytes samples(static_cast<std::size_t>(opened->size - waveHeaderSize));
    const auto count = readAt(opened->file.get(), samples, waveHeaderSize);
    return count && *count == samples.size() ? std::optional(std::move(samples)) : std::nullopt;
}

}  // namespace

Result<Bytes> convertedAudio(const std::filesystem::path& source) {
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        return Trouble{Trouble::Kind::noTemporaryFolder, source.string()};
    }
    const auto converted = Conversion({.output = *folder}).convert(source);
    if (!converted) {
        return converted.error();
    }
    auto audio = samplesOf(converted->path);
    std::error_code ignored;
    std::filesystem::remove(converted->path, ignored);
    if (!audio) {
        return Trouble{Trouble::Kind::decoder, source.string(), 0,
                       english("the converted file cannot be read")};
    }
    return std::move(*audio);
}

}  // namespace kzq
