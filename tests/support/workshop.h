#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "audio/wave.h"
#include "test_folder.h"

namespace kzq {

/// 24-bit samples, right-aligned, the channels interleaved.
using Samples = std::vector<std::int32_t>;

inline constexpr double fullScale = 8'388'608;

/// A temporary folder for making audio files.
class Workshop : Fixed {
  public:
    Workshop();

    const std::filesystem::path& folder() const { return folder_; }
    /// An empty folder beside the sources, for the results.
    const std::filesystem::path& results() const { return results_; }

    std::filesystem::path at(const std::string& name) const { return folder_ / name; }
    std::filesystem::path write(const std::string& name, std::span<const std::uint8_t> bytes) const;
    /// Runs `command` with the shell in the folder; `name` is the file it makes. Throws if it fails.
    std::filesystem::path make(const std::string& name, const std::string& command) const;
    /// Runs ffmpeg, which writes `name`.
    std::filesystem::path encode(const std::string& name, const std::string& arguments) const;
    std::size_t resultCount() const;

  private:
    test::TestFolder folder_;
    std::filesystem::path results_ = folder_ / "results";
};

Bytes readFile(const std::filesystem::path& path);

/// `frames` frames of noise in which only the upper `bits` bits are used; the same every time.
Samples noise(std::size_t frames, unsigned bits, unsigned channels = 2);
/// A sine of `amplitude` (1 is full scale), rounded to 24 bits, on `channels` channels.
Samples sine(std::size_t frames, double frequency, double rate, double amplitude, unsigned channels = 2);

Bytes packed(const Samples& samples);
/// The samples of a file in exactly the pedal's format; throws if it is anything else.
Samples samplesOf(const std::filesystem::path& wave);

/// 24-bit PCM at any rate, with any number of channels, after a plain header.
Bytes waveOf(const Samples& samples, std::uint32_t rate, std::uint16_t channels);

/// The largest difference between two samples at the same position, over the common length.
std::int64_t largestDifference(const Samples& one, const Samples& other);

}  // namespace kzq
