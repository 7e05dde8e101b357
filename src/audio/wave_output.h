#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/new_file.h"

namespace kzq {

/// A stereo WAV file in the pedal's format, being written. It gets its name only once it is complete; an
/// existing file is never overwritten. Without a successful `finish` nothing remains.
class WaveOutput : Fixed {
  public:
    /// `first` is the first way of naming that is tried; the others follow if the file system lacks it.
    explicit WaveOutput(std::filesystem::path path, NewFileRoad first = NewFileRoad::unnamed);
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
    std::filesystem::path hidden_;  ///< its path while being written, if it has a name
    Descriptor file_;
    std::uint64_t sampleBytes_ = 0;
};

}  // namespace kzq
