#pragma once

#include <memory>
#include <optional>

#include "listening/audio_output.h"
#include "listening/sound.h"
#include "platform/fixed.h"

namespace kzq {

/// Plays one sound, round and round without a gap. What has not arrived is waited for in silence. Main
/// thread.
class Player : Fixed {
  public:
    /// `output` outlives it.
    explicit Player(AudioOutput& output) : output_(output) {}
    ~Player() { stop(); }

    /// From its start, in place of what was played.
    void play(std::shared_ptr<const Sound> sound);
    /// Goes on with another at the same place, or at that of its round if it is shorter.
    void change(std::shared_ptr<const Sound> sound);
    void stop();
    bool playing() const { return feed_ != nullptr; }

    /// What is heard now: the sound, and the frame that the device has come to.
    struct Place {
        std::shared_ptr<const Sound> sound;
        Frames at;
    };
    /// Nothing if nothing plays.
    std::optional<Place> place() const;

  private:
    class Feed;

    AudioOutput& output_;
    std::shared_ptr<Feed> feed_;
};

}  // namespace kzq
