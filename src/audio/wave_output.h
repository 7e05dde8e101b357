#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "audio/wave.h"
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
    /// For a child process that writes the samples itself: the file, at their place.
    Result<Descriptor> handOver() const { return draft_->handOver(waveHeaderSize); }
    /// Notes how long the file has become by that.
    void grownTo(std::uint64_t fileSize) {
        sampleBytes_ = fileSize > waveHeaderSize ? fileSize - waveHeaderSize : 0;
    }
    /// To read what has been written.
    Result<Descriptor> reader() const { return draft_->reader(); }
    /// Called now and then, it has the disk write while there is more to come.
    void hasten();
    /// Writes the header and gives the file its name. `sync` waits until it is on the disk.
    Result<void> finish(bool sync);

    std::uint64_t sampleBytes() const { return sampleBytes_; }

  private:
    const std::filesystem::path path_;
    const Draft::Road first_;
    std::optional<Draft> draft_;
    std::uint64_t sampleBytes_ = 0;
    std::uint64_t hastened_ = 0;  ///< so many of them
};

}  // namespace kzq
