#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "audio/wave.h"
#include "device/simulator/wire_journal.h"
#include "platform/executor.h"

namespace kzq::simulator {

/// The pedal's loader: receives an image and its trailer, and installs the image if they match. Not
/// synchronised.
class FirmwareLoader {
  public:
    explicit FirmwareLoader(WireJournal& journal) : journal_(journal) {}

    /// From now on the bulk pipe brings an image, which may come in pieces of any size.
    void prepare(Executor::TimePoint now);
    /// From now on it brings the trailer; false if there is no image.
    bool announceTrailer(Executor::TimePoint now);
    /// Whether a request is in order now: none while it makes room for the image, stores it or waits for its
    /// trailer, which only the announcement of the trailer ends.
    bool admits(std::uint8_t code) const;
    /// Records a violation if the trailer does not come in one transfer of its whole length.
    void inspectOffer(std::size_t bytes);
    /// Returns the bytes taken, or nothing if none were announced.
    std::optional<std::size_t> receive(std::span<const std::uint8_t> from, Executor::TimePoint now);
    /// Forgets what was received so far.
    void drop();

    /// Whether the last trailer matched its image; false while another image is being received.
    bool isInstalled() const { return outcome_ == Outcome::installed; }
    /// The last image that was installed.
    const std::optional<Bytes>& installedImage() const { return installedImage_; }

  private:
    enum class Phase { idle, image, trailer };
    enum class Outcome { none, installed, rejected };

    std::size_t receiveImage(std::span<const std::uint8_t> from, Executor::TimePoint now);
    std::size_t receiveTrailer(std::span<const std::uint8_t> from);
    bool trailerMatches() const;

    WireJournal& journal_;
    Phase phase_ = Phase::idle;
    Outcome outcome_ = Outcome::none;
    Executor::TimePoint prepared_;
    Executor::TimePoint lastImageByte_;
    Bytes image_;
    Bytes trailer_;
    std::optional<Bytes> installedImage_;
};

/// The 4 characters after the text "7306 firmware " in an image; nothing if there is none.
std::optional<std::string> versionInImage(std::span<const std::uint8_t> image);

}  // namespace kzq::simulator
