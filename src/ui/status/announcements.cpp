#include "ui/status/announcements.h"

#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "words/words.h"

namespace kzq {

std::string Announcement::sentence() const {
    return why.empty() ? what : words("%1: %2", what, why);
}

std::string Announcement::rest() const {
    return why.empty() ? detail : inTurn(capital(words("%1.", why)), detail);
}

Announcements::Announcements(Executor& executor, WallClock clock)
    : executor_(executor), clock_(std::move(clock)) {}

void Announcements::setListeners(std::function<void()> changed,
                                 std::function<void(const Announcement&)> spoken) {
    changed_ = std::move(changed);
    spoken_ = std::move(spoken);
}

void Announcements::tell(Announcement announcement) {
    announcement.number = ++last_;
    announcement.time = clock_();
    log(LogCategory::application,
        announcement.sentence() + "." + (announcement.detail.empty() ? "" : " " + announcement.detail));
    settleOlder(announcement);
    if (announcement.failure && !listOpen_) {
        open_.push_back(announcement.number);
    }
    names_.insert(announcement.names.begin(), announcement.names.end());
    list_.push_front(std::move(announcement));
    toldSince_ = executor_.now();
    if (list_.size() > kept) {
        std::erase(open_, list_.back().number);
        list_.pop_back();
    }
    update();
    if (changed_) {
        changed_();
    }
    if (spoken_) {
        spoken_(Announcement(list_.front()));
    }
}

void Announcements::say(const std::string& sentence) {
    if (spoken_) {
        spoken_({.what = sentence});
    }
}

/// Older failures of its job.
void Announcements::settleOlder(const Announcement& newer) {
    if (newer.job.empty() || newer.cancelled) {
        return;
    }
    std::erase_if(open_, [&](std::uint64_t number) {
        const auto told = std::ranges::find(list_, number, &Announcement::number);
        return told != list_.end() && told->job == newer.job &&
               ((newer.failure ? told->missing : newer.asked).empty()
                    ? !newer.failure
                    : std::ranges::includes(newer.asked, told->missing));
    });
}

void Announcements::setRest(std::string sentence, std::string actionLabel, std::function<void()> action) {
    rest_ = {.sentence = std::move(sentence), .actionLabel = std::move(actionLabel)};
    restAction_ = std::move(action);
    update();
}

void Announcements::settle(const std::string& job) {
    std::erase_if(open_, [&](std::uint64_t number) {
        const auto told = std::ranges::find(list_, number, &Announcement::number);
        return !job.empty() && told != list_.end() && told->job == job;
    });
    update();
}

void Announcements::setBackground(std::string sentence, std::string said) {
    background_ = std::move(sentence);
    backgroundSaid_ = std::move(said);
    update();
}

void Announcements::setWork(std::string sentence, std::string actionLabel, std::function<void()> action,
                            const std::string& said) {
    work_ = {.kind = Kind::work,
             .sentence = std::move(sentence),
             .actionLabel = std::move(actionLabel),
             .said = said};
    workAction_ = std::move(action);
    const bool news = std::exchange(workSaid_, said) != said && !said.empty();
    update();
    if (news) {
        say(said);
    }
}

void Announcements::setPreview(std::string sentence, const std::string& said, bool warns) {
    const bool news = preview_.said != said && !said.empty();
    preview_ = {.kind = Kind::work, .sentence = std::move(sentence), .said = said, .warns = warns};
    update();
    if (news) {
        say(said);
    }
}

void Announcements::setHeld(bool held) {
    held_ = held;
    update();
}

void Announcements::setListOpen(bool open) {
    listOpen_ = open;
    if (open) {
        open_.clear();
    }
    update();
}

void Announcements::use(std::uint64_t number) {
    if (number == 0 && line_.kind == Kind::work && preview_.sentence.empty() && workAction_) {
        const auto action = workAction_;  // it may change what is under way
        action();
    } else if (number == 0 && line_.kind == Kind::rest && restAction_) {
        const auto action = restAction_;
        action();
    }
    const auto told = std::ranges::find(list_, number, &Announcement::number);
    if (told == list_.end() || !told->action) {
        return;
    }
    const auto action = told->action;  // it may tell something, which moves the list
    if (action()) {
        std::erase(open_, number);
        update(true);
    }
}

bool Announcements::isOpen(const Announcement& announcement) const {
    return std::ranges::find(open_, announcement.number) != open_.end();
}

bool Announcements::stands(const std::string& sentence) const {
    return std::ranges::any_of(
        list_, [&](const Announcement& told) { return isOpen(told) && told.sentence() == sentence; });
}

Announcements::Line Announcements::wanted() const {
    if (!preview_.sentence.empty()) {
        return preview_;
    }
    if (!work_.sentence.empty()) {
        return work_;
    }
    const auto lineOf = [](const Announcement& announcement) {
        return Line{announcement.failure ? Kind::failure : Kind::success, announcement.sentence(),
                    announcement.actionLabel, announcement.number};
    };
    const auto failure =
        std::ranges::find_if(list_, [this](const Announcement& told) { return isOpen(told); });
    if (failure != list_.end()) {
        return lineOf(*failure);
    }
    const bool succeeded = !list_.empty() && !list_.front().failure;
    const bool fresh = succeeded && executor_.now() - toldSince_ < shortest;
    if (!background_.empty() && !fresh) {
        return {.kind = Kind::work, .sentence = background_, .said = backgroundSaid_};
    }
    if (succeeded) {
        return lineOf(list_.front());
    }
    return rest_;
}

/// Whether the outcome shown goes on being shown.
bool Announcements::staysFor(const Line& next) const {
    if ((line_.kind != Kind::success && line_.kind != Kind::failure) || !preview_.sentence.empty()) {
        return false;
    }
    if (held_ || listOpen_) {
        return true;
    }
    const bool background = next.kind == Kind::work && work_.sentence.empty();
    return line_.kind == Kind::success && (background || next.kind == Kind::success) &&
           executor_.now() - shownSince_ < shortest;
}

void Announcements::update(bool atOnce) {
    auto next = wanted();
    if (!background_.empty() && next.kind == Kind::success) {
        lookAgain(toldSince_ + shortest - executor_.now());
    }
    if (next == line_) {
        return;
    }
    if (!atOnce && staysFor(next)) {
        lookAgain(shownSince_ + shortest - executor_.now());
        return;
    }
    line_ = std::move(next);
    shownSince_ = executor_.now();
    if (changed_) {
        changed_();
    }
}

void Announcements::lookAgain(Executor::Duration left) {
    if (left <= Executor::Duration::zero()) {
        return;  // it is held, and the end of that leads here
    }
    executor_.mainAfter(left, [this, life = std::weak_ptr(life_)] {
        if (!life.expired()) {
            update();
        }
    });
}

}  // namespace kzq
