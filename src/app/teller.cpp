#include "app/teller.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "app/app_environment.h"
#include "app/main_window.h"
#include "app/model/loop_model.h"
#include "device/kzq7306.h"
#include "ui/status/status_line.h"
#include "words/words.h"

namespace kzq {

namespace {

std::string together(const std::string& first, const std::string& then) {
    return words("%1 \u00b7 %2", first, then);
}

std::set<unsigned> numbersOf(const std::vector<SlotNumber>& slots) {
    std::set<unsigned> numbers;
    for (const auto slot : slots) {
        numbers.insert(slot.number());
    }
    return numbers;
}

}  // namespace

Teller::Teller(const AppEnvironment& environment, MainWindow& window, const LoopModel& model)
    : environment_(environment),
      window_(window),
      model_(model),
      notice_(environment),
      announcements_(std::make_shared<Announcements>(environment.executor, &std::chrono::system_clock::now)) {
    announcements_->setRest(words("No pedal connected"));
    window.statusLine().setAnnouncements(announcements_);
}

Teller::~Teller() {
    announcements_->setListeners({}, {});
}

void Teller::tell(const Told& told, const std::string& job, Remedy remedy, const Concern& concern) {
    auto act = [this, life = std::weak_ptr(life_), wanted = std::move(remedy.act)] {
        return !life.expired() && window_.shield() == nullptr && wanted && wanted();
    };
    if (std::exchange(lastToldOf_, model_.pedal()) != model_.pedal()) {
        rest();  // without what is suggested once
    }
    Announcement announcement{.what = told.what,
                              .why = told.why,
                              .detail = told.detail,
                              .failure = told.failure,
                              .cancelled = !told.failure && !told.why.empty(),  // a success has no reason
                              .job = job,
                              .names = told.names,
                              .asked = numbersOf(concern.asked),
                              .missing = numbersOf(concern.missing),
                              .actionLabel = std::move(remedy.label),
                              .action = std::move(act)};
    notice_.told(announcement.sentence());
    announcements_->tell(std::move(announcement));
}

void Teller::rest() {
    const auto looper = environment_.link();
    if (!looper || looper->disconnected()) {
        announcements_->setRest(withoutPedal());
        return;
    }
    if (looper->factoryBlank()) {
        announcements_->setRest(words("The pedal is waiting for firmware"));
        return;
    }
    std::string sentence = "7306";
    if (model_.table().complete) {
        sentence = together(sentence, words(model_.table().size(), "%n loop", "%n loops"));
    }
    if (const auto version = looper->version().value_or(""); !version.empty()) {
        sentence = together(sentence, words("firmware %1", version));
    }
    if (suggestsBackup()) {
        announcements_->setRest(together(sentence, words("nothing has been backed up yet")),
                                words("Back Up\u2026"), openBackUp_);
    } else {
        announcements_->setRest(sentence);
    }
}

/// Once per pedal: until there is something else to say.
bool Teller::suggestsBackup() const {
    return lastToldOf_ != model_.pedal() && model_.table().size() != 0 && environment_.wasEverBackedUp &&
           !environment_.wasEverBackedUp();
}

std::string Teller::withoutPedal() const {
    const auto sentence = holder_.empty() ? words("No pedal connected") : holder_;
    return filesWaiting_ == 0
               ? sentence
               : together(sentence, words(filesWaiting_, "%n file is waiting", "%n files are waiting"));
}

void Teller::heldBy(const std::string& holder) {
    holder_ = holder;
    rest();
}

void Teller::waiting(std::size_t files) {
    filesWaiting_ = files;
    rest();
}

Teller::Work Teller::newWork(Remedy stop) {
    works_.try_emplace(++lastWork_, UnderWay{.stop = std::move(stop), .since = environment_.executor.now()});
    return lastWork_;
}

void Teller::working(Work work, const std::string& sentence, const std::string& said) {
    if (const auto found = works_.find(work); found != works_.end()) {
        found->second.sentence = sentence;
        found->second.said = said;
        showWork(work);
    }
}

void Teller::idle(Work work, Work rest) {
    const auto ended = works_.extract(work);
    if (ended.empty()) {
        return;
    }
    if (const auto found = works_.find(rest); found != works_.end()) {
        found->second.since = ended.mapped().since;
    } else {
        notice_.ended(environment_.executor.now() - ended.mapped().since);
    }
    showWork(work);
}

const Teller::UnderWay* Teller::newest() const {
    const auto found = std::find_if(works_.rbegin(), works_.rend(),
                                    [](const auto& entry) { return !entry.second.sentence.empty(); });
    return found == works_.rend() ? nullptr : &found->second;
}

void Teller::showWork(Work changed) {
    if (changed == followed_) {
        *silent_ = false;
    }
    if (*silent_) {
        return;  // the line goes on saying so
    }
    const auto* const work = newest();
    if (work == nullptr) {
        announcements_->setWork({});
    } else {
        announcements_->setWork(work->sentence, work->stop.label, work->stop.act, work->said);
    }
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

Teller::Saying Teller::followerInWords(Work work, std::function<void(Executor::Task)> post) {
    followed_ = work;
    *silent_ = false;
    return [this, work, post = std::move(post), silent = silent_, last = std::string()](
               const std::string& sentence, const std::string& said) mutable {
        const bool answersAgain = silent->exchange(false);
        if (last != sentence || answersAgain) {
            last = sentence;
            post([this, work, sentence, said] { working(work, sentence, said); });
        }
    };
}

std::function<void(SlotNumber)> Teller::follower(Work work, const std::function<void(Executor::Task)>& post,
                                                 const char* sentence) {
    return [say = followerInWords(work, post), sentence, last = std::optional<SlotNumber>(),
            inWords = std::string()](SlotNumber slot) mutable {
        if (std::exchange(last, slot) != slot) {
            inWords = words(sentence, slot.number());  // not for each of a loop's many pieces
        }
        say(inWords, "");
    };
}

void Teller::silent(bool endable) {
    if (!silent_->exchange(true)) {
        const auto* const work = newest();
        const auto stop = work == nullptr || !endable ? Remedy{} : work->stop;
        tell({.what = words("The pedal has stopped answering"),
              .detail = !endable   ? words("Unplug it.")
                        : stop.act ? words("Stop it, or unplug the pedal.")
                                   : words("Cancel, or unplug it.")});
        announcements_->setWork(!endable   ? words("The pedal has stopped answering: unplug it")
                                : stop.act ? words("The pedal has stopped answering: stop, or unplug it")
                                           : words("The pedal has stopped answering: cancel, or unplug it"),
                                stop.label, stop.act);
    }
}

void Teller::imported(const Loops& asked, const std::vector<SlotNumber>& missing) {
    for (const auto& [slot, loop] : asked) {
        if (std::ranges::find(missing, slot) == missing.end()) {
            saved_.put(slot, loop);
            notSaved_.erase(slot);
        } else {
            notSaved_.insert(slot);
        }
    }
}

void Teller::forgetImports(const Concern& gone) {
    for (const auto slot : gone.asked) {
        if (std::ranges::find(gone.missing, slot) == gone.missing.end()) {
            saved_.remove(slot);
            notSaved_.erase(slot);
        }
    }
}

void Teller::forgetImports() {
    saved_ = {};
    notSaved_.clear();
}

void Teller::beforeErase(const std::vector<SlotNumber>& asked, bool kept) {
    const auto stillSaved = [this](SlotNumber slot) {
        const auto* const then = saved_.find(slot);
        const auto* const now = model_.table().find(slot);
        return then != nullptr && now != nullptr && *then == *now;
    };
    std::vector<SlotNumber> lost;
    std::ranges::copy_if(asked, std::back_inserter(lost),
                         [&](SlotNumber slot) { return notSaved_.contains(slot) && !stillSaved(slot); });
    if (lost.empty()) {
        return;
    }
    const Told told{.what = words(lost.size(), "%1 was not saved", "%1 were not saved", listOf(lost)),
                    .detail = kept ? "" : words("What is erased now is gone."),
                    .failure = true};
    if (!announcements_->stands(told.what)) {
        tell(told, "import", {}, {.missing = lost});
    }
}

}  // namespace kzq
