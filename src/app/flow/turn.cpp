#include "app/flow/turn.h"

#include <thread>
#include <utility>

namespace kzq {

/// Of all turns, since there is one at a time. Main thread only, but for what is const.
struct Turn::State {
    enum class Phase { free, starting, running, yielding };

    void end(unsigned number) {
        if (number != holder) {
            return;  // it was taken over
        }
        phase = Phase::free;
        if (std::exchange(covered, false) && shield) {
            shield(false);
        }
        if (freed) {
            freed();
        }
    }

    Executor& executor;
    std::function<void(bool up)> shield;
    std::function<void()> freed;
    const std::thread::id mainThread = std::this_thread::get_id();
    Phase phase = Phase::free;
    unsigned holder = 0;  ///< the number of the turn
    bool covered = false;
};

Turn::~Turn() {
    if (!state_) {
        return;
    }
    if (std::this_thread::get_id() == state_->mainThread) {
        end();
    } else {
        state_->executor.main([state = state_, number = number_] { state->end(number); });
    }
}

void Turn::occupy() {
    state_->phase = State::Phase::running;
}

void Turn::yield() {
    state_->phase = State::Phase::yielding;
}

void Turn::cover() {
    occupy();
    state_->covered = true;
    if (state_->shield) {
        state_->shield(true);
    }
}

void Turn::end() {
    if (const auto state = std::exchange(state_, nullptr)) {
        state->end(number_);
    }
}

void Turn::leaveCovered() {
    state_.reset();
}

Turns::Turns(Executor& executor, std::function<void(bool up)> shield, std::function<void()> freed)
    : state_(new Turn::State{executor, std::move(shield), std::move(freed)}) {}

Turns::~Turns() {
    state_->shield = nullptr;
    state_->freed = nullptr;
}

std::optional<Turn> Turns::take() {
    if (!free() && !yielding()) {
        return std::nullopt;
    }
    state_->phase = Turn::State::Phase::starting;
    return Turn(state_, ++state_->holder);
}

bool Turns::free() const {
    return state_->phase == Turn::State::Phase::free;
}

bool Turns::starting() const {
    return state_->phase == Turn::State::Phase::starting;
}

bool Turns::running() const {
    return state_->phase == Turn::State::Phase::running;
}

bool Turns::yielding() const {
    return state_->phase == Turn::State::Phase::yielding;
}

}  // namespace kzq
