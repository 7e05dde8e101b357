#include "audio/converted_audio.h"

#include <system_error>

#include "audio/conversion.h"
#include "platform/plain_file.h"
#include "platform/run_folder.h"

namespace kzq {

Result<Bytes> convertedAudio(const std::filesystem::path& source) {
    const auto folder = RunFolder::ofThisRun().path();
    if (!folder) {
        return Trouble{Trouble::Kind::noTemporaryFolder, source.string()};
    }
    const auto converted = Conversion({.output = *folder}).convert(source);
    if (!converted) {
        return converted.error();
    }
    constexpr std::uint64_t longest = waveHeaderSize + Conversion::mostFrames * frameBytes;
    const auto image = readPlainFile(converted->path, longest, Links::refused);
    std::error_code ignored;
    std::filesystem::remove(converted->path, ignored);
    auto audio = image && isPerfectWave(*image, 2) ? lpcm(*image) : std::nullopt;
    if (!audio) {
        return Trouble{Trouble::Kind::decoder, source.string(), 0, "the converted file cannot be read"};
    }
    return std::move(*audio);
}

}  // namespace kzq
