#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <span>

#include "audio/wave.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq::simulator {

/// The audio of a loop that stays in its file. The file is open, so it may be replaced or removed meanwhile.
/// Not synchronised.
class LoopOnDisk : Fixed {
  public:
    /// `audio` is where it stands in `file`; `path` is for the log.
    LoopOnDisk(std::filesystem::path path, Descriptor file, const ByteRange& audio);

    std::size_t size() const { return audio_.length; }
    /// Fills `into` from `offset` of the audio on. False, and a line in the log, if there is no reading it,
    /// or another program has written to the file since it was opened.
    bool read(std::size_t offset, std::span<std::uint8_t> into);

  private:
    bool fetch(std::size_t offset);
    struct stat facts() const;

    const std::filesystem::path path_;
    const Descriptor file_;
    const ByteRange audio_;
    const struct stat opened_;
    Bytes block_;  ///< of the audio, from `blockStart_` on: a pedal's pieces are too small for a call each
    std::size_t blockStart_ = 0;
};

}  // namespace kzq::simulator
