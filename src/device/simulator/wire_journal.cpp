#include "device/simulator/wire_journal.h"

namespace kzq::simulator {

namespace {

std::size_t pipe(WireEvent::Kind kind) {
    return static_cast<std::size_t>(kind);
}

}  // namespace

bool WireJournal::begin(const WireEvent& event) {
    std::optional<std::uint64_t>& pending = pending_.at(pipe(event.kind));
    askedAgain_ = pending.has_value();
    if (askedAgain_) {
        current_ = *pending;
        return false;
    }
    add(event);
    current_ = forgotten_ + events_.size() - 1;
    // Remembers the pipe until `end` knows how it went.
    pending = current_;
    return true;
}

void WireJournal::end(std::size_t transferred, bool pending) {
    if (current_ >= forgotten_) {
        events_.at(current_ - forgotten_).transferred = static_cast<std::uint32_t>(transferred);
    }
    if (pending) {
        return;
    }
    for (auto& number : pending_) {
        if (number == current_) {
            number.reset();
        }
    }
}

void WireJournal::note(WireEvent::Kind kind, Executor::TimePoint time) {
    WireEvent event;
    event.kind = kind;
    event.time = time;
    add(event);
    pending_ = {};
    excused_ = false;
}

void WireJournal::violation(std::string_view sentence) {
    if (askedAgain_ || violations_.size() >= mostViolations) {
        return;
    }
    violations_.push_back("event " + std::to_string(current_ + 1) + ": " + std::string(sentence));
}

void WireJournal::outOfOrder(std::string_view sentence) {
    if (!excused_) {
        violation(sentence);
    }
}

void WireJournal::add(const WireEvent& event) {
    if (events_.size() >= mostEvents) {
        constexpr auto half = mostEvents / 2;
        events_.erase(events_.begin(), events_.begin() + half);
        forgotten_ += half;
    }
    events_.push_back(event);
}

void WireJournal::clear() {
    forgotten_ += events_.size();
    events_.clear();
}

}  // namespace kzq::simulator
