#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/descriptor.h"

namespace kzq {

/// A WAV file in the pedal's format, stereo, while it is written. It has its name only once it is whole; an
/// existing file is never replaced. Without a successful `finish` nothing remains.
class WaveOutput {
  public:
    explicit WaveOutput(std::filesystem::path path);
    WaveOutput(const WaveOutput&) = delete;
    WaveOutput& operator=(const WaveOutput&) = delete;
    WaveOutput(WaveOutput&&) = delete;
    WaveOutput& operator=(WaveOutput&&) = delete;
    ~WaveOutput();

    // Each returns 0 or an errno value.

    int open();
    int write(std::span<const std::uint8_t> samples);
    /// Writes the header and gives the file its name. `sync` waits until it is on the disk.
    int finish(bool sync);

    std::uint64_t sampleBytes() const { return sampleBytes_; }

  private:
    const std::filesystem::path path_;
    Descriptor file_;
    bool named_ = false;  ///< it has its name already, and loses it on failure
    std::uint64_t sampleBytes_ = 0;
};

}  // namespace kzq
