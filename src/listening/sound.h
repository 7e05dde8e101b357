#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <span>

#include "audio/peaks.h"
#include "loops/frames.h"
#include "loops/slot_number.h"
#include "platform/bytes.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

/// The audio of a loop in a WAV file of the pedal's format, whole or still arriving. Any thread, unless noted
/// otherwise.
class Sound : Fixed {
  public:
    /// Of a file that is there, with its peaks. It can be played even if the file is removed. notAudio: it is
    /// not of that format. Blocks.
    static Result<std::shared_ptr<Sound>> ofFile(const std::filesystem::path& wave);
    /// The same without the peaks, so that it need not be read whole before.
    static Result<std::shared_ptr<Sound>> withoutPeaks(const std::filesystem::path& wave);
    /// Of a loop that is going to arrive, in a new file in `folder`. Blocks.
    static Result<std::shared_ptr<Sound>> arriving(const std::filesystem::path& folder, SlotNumber slot,
                                                   Frames length);

    const std::filesystem::path& file() const { return path_; }
    Frames length() const { return length_; }
    /// So much of it, from the start, can be read.
    Frames there() const { return {there_}; }
    bool whole() const { return there_ == length_.count; }
    std::shared_ptr<const Peaks> peaks() const;
    /// Fills `audio` with whole frames from `from` on, which are there; silence where the disk fails.
    void read(Frames from, std::span<std::uint8_t> audio) const;

    // The thread on which it arrives.

    /// What comes behind its length does not count.
    void add(ByteView audio);
    /// Whether all of it came and was written, and nothing else went wrong. Otherwise its file is removed.
    Result<void> finish(const std::optional<Trouble>& otherwise = {});

  private:
    Sound(std::filesystem::path path, Descriptor file, Frames length);
    void publish(const Peaks& peaks);

    const std::filesystem::path path_;
    const Descriptor file_;
    const Frames length_;
    std::atomic<std::uint64_t> there_ = 0;
    std::uint64_t bytes_ = 0;         ///< that have arrived
    std::optional<Trouble> trouble_;  ///< of the disk
    PeakFinder finder_;
    mutable std::mutex mutex_;  ///< guards what follows
    std::shared_ptr<const Peaks> peaks_ = std::make_shared<Peaks>();
};

}  // namespace kzq
