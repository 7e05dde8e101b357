#include "app/teller.h"

#include <algorithm>
#include <utility>

#include "app/app_environment.h"
#include "app/main_window.h"
#include "app/model/loop_model.h"
#include "device/kzq7306.h"
#include "ui/status/status_line.h"

namespace kzq {

namespace {

constexpr auto between = " \u00b7 ";

}  // namespace

Teller::Teller(const AppEnvironment& environment, MainWindow& window, const LoopModel& model)
    : environment_(environment),
      window_(window),
      model_(model),
      announcements_(std::make_shared<Announcements>(environment.executor, &std::chrono::system_clock::now)) {
    announcements_->setRest("No pedal connected");
    window.statusLine().setAnnouncements(announcements_);
}

Teller::~Teller() {
    announcements_->setListeners({}, {});
}

void Teller::tell(const Told& told, const std::string& job, Remedy remedy) {
    auto act = [this, life = std::weak_ptr(life_), wanted = std::move(remedy.act)] {
        return !life.expired() && window_.shield() == nullptr && wanted && wanted();
    };
    announcements_->tell({.what = told.what,
                          .why = told.why,
                          .detail = told.detail,
                          .failure = told.failure,
                          .job = job,
                          .actionLabel = std::move(remedy.label),
                          .action = std::move(act)});
}

void Teller::rest() {
    const auto looper = environment_.link();
    if (!looper || looper->disconnected()) {
        announcements_->setRest("No pedal connected");
        return;
    }
    std::string sentence = "7306";
    if (model_.table().complete) {
        const auto count = model_.table().size();
        sentence += between + std::to_string(count) + (count == 1 ? " loop" : " loops");
    }
    if (const auto version = looper->version().value_or(""); !version.empty()) {
        sentence += between + ("firmware " + version);
    }
    announcements_->setRest(sentence);
}

void Teller::working(const std::string& sentence) {
    silent_ = false;
    announcements_->setWork(sentence);
}

void Teller::idle() {
    working({});
}

std::function<void(Executor::Task)> Teller::poster() {
    return [&executor = environment_.executor, life = std::weak_ptr(life_)](Executor::Task task) {
        executor.main([life, task = std::move(task)] {
            if (!life.expired()) {
                task();
            }
        });
    };
}

std::function<void(SlotNumber)> Teller::follower(std::function<void(Executor::Task)> post,
                                                 const std::string& verb) {
    return [this, post = std::move(post), verb, last = std::optional<SlotNumber>()](SlotNumber slot) mutable {
        if (last != slot) {
            last = slot;
            const auto sentence = verb + " loop " + std::to_string(slot.number()) + "\u2026";
            post([this, sentence] { working(sentence); });
        }
    };
}

void Teller::silent() {
    const Told told{.what = "The pedal has stopped answering", .detail = "Cancel, or unplug it."};
    if (!std::exchange(silent_, true)) {
        tell(told);
        announcements_->setWork(told.what + ": cancel, or unplug it");
    }
}

void Teller::imported(const std::vector<SlotNumber>& asked, const std::vector<SlotNumber>& missing) {
    for (const auto slot : asked) {
        notSaved_.erase(slot);
    }
    notSaved_.insert(missing.begin(), missing.end());
}

void Teller::beforeErase(const std::vector<SlotNumber>& asked) {
    std::vector<SlotNumber> lost;
    std::ranges::copy_if(asked, std::back_inserter(lost),
                         [this](SlotNumber slot) { return notSaved_.contains(slot); });
    if (!lost.empty()) {
        tell({.what = listOf(lost) + (lost.size() == 1 ? " was" : " were") + " not saved",
              .detail = "What is erased now is gone.",
              .failure = true},
             "erase");
    }
}

}  // namespace kzq
