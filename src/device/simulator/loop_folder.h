#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "device/simulator/pedal_memory.h"

namespace kzq::simulator {

/// A pedal's memory as a folder of WAV files, one per slot, named "Loop 7.wav" (also accepted: "7.wav",
/// "07.wav"). The files are 24-bit stereo 44,100 Hz; tempo and channel are the defaults of StoredLoop. Other
/// files are left alone. Not synchronised.
class LoopFolder {
  public:
    explicit LoopFolder(std::filesystem::path folder) : folder_(std::move(folder)) {}

    /// Creates the folder if it is missing and reads it. Nothing on failure, with a sentence in `error`.
    std::optional<PedalMemory> load(std::string& error);
    /// Writes (or, for null, removes) the file of one slot: the one that was loaded, else "Loop N.wav". A
    /// file gets its name only once it is complete and synced. False, and a line in the log, on failure.
    bool store(std::uint8_t address, const StoredLoop* loop);

  private:
    bool loadFile(const std::filesystem::path& file, PedalMemory& memory, std::uint64_t& frames,
                  std::string& error);

    std::filesystem::path folder_;
    std::array<std::filesystem::path, loopSlots> files_;  ///< by address; empty: not known yet
};

}  // namespace kzq::simulator
