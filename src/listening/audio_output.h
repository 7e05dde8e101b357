#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "platform/fixed.h"

namespace kzq {

/// A sample as the device takes it, signed, in the byte order of this computer.
enum class SampleForm : std::uint8_t { int16, int32 };

/// What makes sound heard: a device for stereo at 44,100 Hz. Main thread, which never waits for it, unless
/// noted otherwise.
class AudioOutput : Fixed {
  public:
    /// Fills `into` with whole frames: silence where there is nothing. On the output's thread.
    using Fill = std::function<void(std::span<std::uint8_t> into, SampleForm form)>;

    virtual ~AudioOutput() = default;

    /// Plays what `fill` brings, until `stop`, in place of what was played before and of what waits in
    /// buffers. It may be called a last time after `stop`.
    virtual void start(Fill fill) = 0;
    virtual void stop() = 0;
    /// The frames since `start` that the device has really taken: not what waits in buffers.
    virtual std::uint64_t taken() const = 0;

    /// Why nothing can be heard, as a text for words(); empty if it can, as far as is known.
    virtual std::string trouble() const = 0;
    /// `changed` is called when the trouble has changed, on any thread.
    virtual void setListener(std::function<void()> changed) = 0;
};

}  // namespace kzq
