#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/descriptor.h"
#include "platform/new_file.h"

namespace kzq {

/// A WAV file in the pedal's format, stereo, while it is written. It has its name only once it is whole; an
/// existing file is never replaced. Without a successful `finish` nothing remains.
class WaveOutput {
  public:
    /// `first` is the road to the name that is tried first; the later ones follow where the file system
    /// lacks it.
    explicit WaveOutput(std::filesystem::path path, NewFileRoad first = NewFileRoad::unnamed);
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
    int openHidden();
    int place();

    const std::filesystem::path path_;
    NewFileRoad road_;
    std::filesystem::path hidden_;  ///< where it is while it is written, unless it has no name at all
    Descriptor file_;
    std::uint64_t sampleBytes_ = 0;
};

}  // namespace kzq
