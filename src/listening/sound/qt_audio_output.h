#pragma once

#include <memory>

#include "listening/audio_output.h"

namespace kzq {

/// The sound device that the user has chosen for all programs. It has a thread of its own, so that neither
/// the window nor the sound waits for the other.
class QtAudioOutput : public AudioOutput {
  public:
    /// Needs a QCoreApplication. Returns at once: whether there is a device is known a moment after its event
    /// loop has begun.
    QtAudioOutput();
    ~QtAudioOutput() override;

    void start(Fill fill) override;
    void stop() override;
    std::uint64_t taken() const override;
    std::string trouble() const override;
    void setListener(std::function<void()> changed) override;

  private:
    class Device;
    struct Known;

    const std::shared_ptr<Known> known_;
    class Thread;
    const std::unique_ptr<Thread> thread_;
};

}  // namespace kzq
