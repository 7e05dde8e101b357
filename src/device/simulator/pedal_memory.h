#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "audio/wave.h"
#include "device/simulator/loop_on_disk.h"
#include "loops/facts.h"

namespace kzq::simulator {

/// A loop as the simulated pedal stores it: raw 24-bit stereo frames, not padded.
struct StoredLoop {
    Bytes audio = {};  ///< unless it is on the disk
    std::uint8_t tempo = 120;
    std::uint8_t channel = 1;
    std::shared_ptr<LoopOnDisk> onDisk = nullptr;

    /// Of the audio, in bytes.
    std::size_t size() const { return onDisk ? onDisk->size() : audio.size(); }
    /// Fills `into` from `offset` on, with silence behind the end. False if the file cannot be read.
    bool read(std::size_t offset, std::span<std::uint8_t> into) const;
    /// With its audio in memory, none if it cannot be read.
    StoredLoop loaded() const;

    bool operator==(const StoredLoop&) const = default;
};

/// The 20 loops, by address (0 to 19).
using PedalMemory = std::array<std::optional<StoredLoop>, loopSlots>;

/// Called for every loop changed over the wire: the address, and the new loop or null if it was erased.
/// Called on the thread of the transfer, which waits for it; the loop is valid during the call.
using MemoryListener = std::function<void(std::uint8_t address, const StoredLoop* loop)>;

}  // namespace kzq::simulator
