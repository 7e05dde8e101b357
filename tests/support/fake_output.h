#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "listening/audio_output.h"

namespace kzq::test {

/// A sound device that takes frames when a test says so.
class FakeOutput : public AudioOutput {
  public:
    void start(Fill fill) override {
        fill_ = std::move(fill);
        heard.clear();
        ++starts;
    }
    void stop() override { fill_ = nullptr; }
    std::uint64_t taken() const override { return heard.size() / 2 - std::min(heard.size() / 2, waiting); }
    std::string trouble() const override { return trouble_; }
    void setListener(std::function<void()> changed) override { changed_ = std::move(changed); }

    bool plays() const { return fill_ != nullptr; }
    void take(std::size_t frames) {
        std::vector<std::int32_t> samples(frames * 2);
        if (fill_) {
            fill_({reinterpret_cast<std::uint8_t*>(samples.data()), samples.size() * sizeof samples[0]},
                  SampleForm::int32);
            heard.insert(heard.end(), samples.begin(), samples.end());
        }
    }
    void setTrouble(const std::string& trouble) {
        trouble_ = trouble;
        changed_();
    }

    std::vector<std::int32_t> heard;  ///< since the last start
    std::size_t waiting = 0;          ///< frames that were taken and are not heard yet
    int starts = 0;

  private:
    Fill fill_;
    std::string trouble_;
    std::function<void()> changed_;
};

/// The pedal's audio as this device gets it, so many frames of it from `from` on, round and round.
inline std::vector<std::int32_t> asHeard(std::span<const std::uint8_t> audio, std::size_t from,
                                         std::size_t frames) {
    std::vector<std::int32_t> samples;
    for (std::size_t i = from * 2; i < (from + frames) * 2; ++i) {
        const auto* const bytes = audio.data() + i * 3 % audio.size();
        const auto high =
            std::uint32_t{bytes[0]} << 8U | std::uint32_t{bytes[1]} << 16U | std::uint32_t{bytes[2]} << 24U;
        samples.push_back(static_cast<std::int32_t>(high));
    }
    return samples;
}

}  // namespace kzq::test
