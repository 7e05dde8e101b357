#include "listening/player.h"

#include <algorithm>
#include <array>
#include <deque>
#include <mutex>
#include <utility>

#include "listening/samples.h"
#include "loops/facts.h"

namespace kzq {

/// What the output takes from, on its thread; and where it has come to. Shared, as it may take once more when
/// it is over.
class Player::Feed : Fixed {
  public:
    explicit Feed(std::shared_ptr<const Sound> sound) : next_{std::move(sound), {}} {}

    void fill(std::span<std::uint8_t> into, SampleForm form) {
        const auto size = frameBytesOf(form);
        while (into.size() >= size) {
            auto part = take(into.size() / size);
            const auto out = into.first(part.count * size);
            into = into.subspan(out.size());
            if (part.silent) {
                std::ranges::fill(out, std::uint8_t{0});
            } else {
                const auto audio = std::span(audio_).first(part.count * frameBytes);
                part.place.sound->read(part.place.at, audio);
                convertSamples(audio, out, form);
            }
        }
    }

    void change(std::shared_ptr<const Sound> sound) {
        const std::lock_guard guard(mutex_);
        const Frames at{next_.at.count % sound->length().count};
        next_ = {std::move(sound), at};
    }

    Place placeAfter(std::uint64_t taken) {
        const std::lock_guard guard(mutex_);
        while (parts_.size() > 1 && parts_.front().from + parts_.front().count <= taken) {
            parts_.pop_front();
        }
        if (parts_.empty()) {
            return next_;
        }
        const auto& part = parts_.front();
        const auto into = std::min(taken - std::min(taken, part.from), part.count - 1);
        return {part.place.sound, {part.place.at.count + (part.silent ? 0 : into)}};
    }

  private:
    static constexpr std::size_t mostFrames = 4096;

    /// Frames that follow each other, in the sound and in what the output took.
    struct Part {
        Place place;
        std::uint64_t from = 0;  ///< frames that the output took before
        std::uint64_t count = 0;
        bool silent = false;
    };

    /// The next frames, `most` or fewer.
    Part take(std::size_t most) {
        const std::lock_guard guard(mutex_);
        const auto& sound = *next_.sound;
        if (next_.at >= sound.length()) {
            next_.at = {};
        }
        const auto there = sound.there().count - std::min(sound.there().count, next_.at.count);
        Part part{next_, given_, std::min<std::uint64_t>({most, mostFrames, there})};
        if (there == 0) {
            part.silent = true;
            part.count = most;
        } else {
            next_.at.count += part.count;
        }
        given_ += part.count;
        parts_.push_back(part);
        return part;
    }

    std::array<std::uint8_t, mostFrames * frameBytes> audio_{};  ///< on the output's thread
    std::mutex mutex_;                                           ///< guards what follows
    Place next_;                                                 ///< to be taken
    std::uint64_t given_ = 0;
    std::deque<Part> parts_;
};

void Player::play(std::shared_ptr<const Sound> sound) {
    feed_ = std::make_shared<Feed>(std::move(sound));
    output_.start([feed = feed_](std::span<std::uint8_t> into, SampleForm form) { feed->fill(into, form); });
}

void Player::change(std::shared_ptr<const Sound> sound) {
    if (feed_) {
        feed_->change(std::move(sound));
    }
}

void Player::stop() {
    if (std::exchange(feed_, nullptr)) {
        output_.stop();
    }
}

std::optional<Player::Place> Player::place() const {
    return feed_ ? std::optional(feed_->placeAfter(output_.taken())) : std::nullopt;
}

}  // namespace kzq
