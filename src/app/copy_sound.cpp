#include "app/copy_sound.h"

#include <chrono>
#include <utility>

#include "app/app_parts.h"
#include "operations/sentences.h"
#include "words/words.h"

namespace kzq {

struct CopySound::Now {
    std::size_t copy;
    Teller::Work work = 0;
};

CopySound::CopySound(AppParts& parts, Show show) : parts_(parts), show_(std::move(show)) {
    if (auto* const output = parts.environment.sound) {
        player_ = std::make_unique<Player>(*output);
    }
}

CopySound::~CopySound() = default;

void CopySound::press(std::size_t copy, const std::filesystem::path& file, const std::string& name) {
    const bool plays = now_ && now_->copy == copy;
    stop();
    if (plays || !player_ || !parts_.environment.sound->trouble().empty()) {
        return;
    }
    parts_.listening.stop();
    now_ = std::make_shared<Now>(Now{copy, parts_.teller.newWork()});
    show_(copy, {.on = true});
    parts_.environment.executor.background(
        Priority::high, [this, post = parts_.teller.poster(), now = std::weak_ptr(now_), file, name] {
            post([this, now, name, sound = Sound::withoutPeaks(file)] {
                if (now.expired()) {
                    return;  // stopped meanwhile
                }
                if (sound) {
                    begin(name, *sound);
                    return;
                }
                stop();
                parts_.teller.tell({.what = words("The copy of %1 could not be played", name),
                                    .why = words("its file could not be read"),
                                    .failure = true},
                                   "copy");
            });
        });
}

void CopySound::begin(const std::string& name, std::shared_ptr<const Sound> sound) {
    parts_.teller.working(now_->work, words("Playing %1, %2", name, clockText(sound->length())),
                          words("Playing %1", name));
    player_->play(std::move(sound));
    follow();
}

void CopySound::follow() {
    constexpr auto between = std::chrono::milliseconds(50);
    const auto place = *player_->place();
    show_(now_->copy,
          {.on = true,
           .position = static_cast<double>(place.at.count) / static_cast<double>(place.sound->length().count),
           .played = place.at});
    parts_.environment.executor.mainAfter(between, [this, now = std::weak_ptr(now_)] {
        if (!now.expired()) {
            follow();
        }
    });
}

void CopySound::stop() {
    if (const auto was = std::exchange(now_, nullptr)) {
        player_->stop();
        parts_.teller.idle(was->work);
        show_(was->copy, {});
    }
}

}  // namespace kzq
