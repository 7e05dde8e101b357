#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <utility>

#include "device/simulator/pedal_memory.h"
#include "loops/facts.h"
#include "platform/result.h"

namespace kzq::simulator {

/// The audio of a file that is not in the pedal's format.
using LoopReader = std::function<Result<Bytes>(const std::filesystem::path& file)>;

/// A pedal's memory as a folder of WAV files, one per slot, named "Loop 7.wav" (also accepted: "7.wav",
/// "07.wav"). The files are 24-bit stereo 44,100 Hz, or anything that can be
/// converted if there is a converter; tempo and channel are the defaults of StoredLoop. Other
/// files are left alone. Not synchronised.
class LoopFolder {
  public:
    explicit LoopFolder(std::filesystem::path folder, LoopReader convert = {})
        : folder_(std::move(folder)), convert_(std::move(convert)) {}

    /// Reads the folder, which must be there; loops in the pedal's format stay on the disk. Failures: folder,
    /// noRoom; of a file: noLoop, file, otherFormat, twoFiles and the converter's; `where` is the file or
    /// folder.
    Result<PedalMemory> load();
    /// Writes (or, for null, removes) the file of one slot: the one that was loaded, else "Loop N.wav". A
    /// file gets its name only once it is complete and synced. False, and a line in the log, on failure.
    bool store(std::uint8_t address, const StoredLoop* loop);

  private:
    Result<void> loadFile(const std::filesystem::path& file, PedalMemory& memory, std::uint64_t& frames);

    std::filesystem::path folder_;
    LoopReader convert_;
    std::array<std::filesystem::path, loopSlots> files_;  ///< by address; empty: not known yet
};

}  // namespace kzq::simulator
