#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "platform/draft.h"

namespace kzq {

/// A stereo WAV file in the pedal's format, being written. It gets its name only once it is complete; an
/// existing file is never overwritten. Without a successful `finish` nothing remains. Failures are a Draft's.
class WaveOutput {
  public:
    /// `first` is the road to the name that is tried first.
    explicit WaveOutput(std::filesystem::path path, Draft::Road first = Draft::Road::unnamed);

    /// Starts the file, or starts it once more.
    Result<void> open();
    Result<void> write(ByteView samples);
    /// Writes the header and gives the file its name. `sync` waits until it is on the disk.
    Result<void> finish(bool sync);

    std::uint64_t sampleBytes() const { return sampleBytes_; }

  private:
    const std::filesystem::path path_;
    const Draft::Road first_;
    std::optional<Draft> draft_;
    std::uint64_t sampleBytes_ = 0;
};

}  // namespace kzq
