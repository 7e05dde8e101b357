#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "loops/facts.h"
#include "loops/frames.h"
#include "platform/bytes.h"
#include "platform/plain_file.h"

namespace kzq {

/// How loud a loop is along its length, for pictures: `columns` equal parts, in each the largest absolute
/// sample of both channels, 0 to 255. A loop of fewer frames has some of them in several parts.
struct Peaks {
    static constexpr std::size_t columns = 480;

    std::array<std::uint8_t, columns> heights{};
    std::size_t known = 0;  ///< so many, from the start, have been read whole

    bool operator==(const Peaks&) const = default;
};

/// Finds them in the pedal's audio as it arrives, piece by piece (pieces need not end with a frame). Audio
/// beyond `total` does not count. One thread.
class PeakFinder {
  public:
    explicit PeakFinder(Frames total) : total_(total) {}

    void add(ByteView audio);
    const Peaks& peaks() const { return peaks_; }

  private:
    void takeFrame();

    const Frames total_;
    Peaks peaks_;
    std::uint64_t frames_ = 0;  ///< so far
    std::array<std::uint8_t, frameBytes> frame_{};
    std::size_t filled_ = 0;  ///< of that frame
};

/// Of a whole file of the pedal's format; nothing if it is not one. Blocks.
std::optional<Peaks> peaksOf(const std::filesystem::path& wave);
/// Whether it has the header that `wave` makes for audio of its length, in stereo. Blocks.
bool hasWaveHeader(const PlainFile& file);

}  // namespace kzq
