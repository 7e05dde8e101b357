#include "app/flow/turn.h"

#include <thread>
#include <utility>

namespace kzq {

/// Of all turns, since there is one at a time. Main thread only, but for what is const.
struct Turn::State {
    enum class Phase { free, starting, running };

    void end() {
        phase = Phase::free;
        if (std::exchange(covered, false) && shield) {
            shield(false);
        }
    }

    Executor& executor;
    std::function<void(bool up)> shield;
    const std::thread::id mainThread = std::this_thread::get_id();
    Phase phase = Phase::free;
    bool covered = false;
};

Turn::~Turn() {
    if (!state_) {
        return;
    }
    if (std::this_thread::get_id() == state_->mainThread) {
        end();
    } else {
        state_->executor.main([state = state_] { state->end(); });
    }
}

void Turn::occupy() {
    state_->phase = State::Phase::running;
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
        state->end();
    }
}

void Turn::leaveCovered() {
    state_.reset();
}

Turns::Turns(Executor& executor, std::function<void(bool up)> shield)
    : state_(new Turn::State{executor, std::move(shield)}) {}

Turns::~Turns() {
    state_->shield = nullptr;
}

std::optional<Turn> Turns::take() {
    if (state_->phase != Turn::State::Phase::free) {
        return std::nullopt;
    }
    state_->phase = Turn::State::Phase::starting;
    return Turn(state_);
}

bool Turns::starting() const {
    return state_->phase == Turn::State::Phase::starting;
}

bool Turns::running() const {
    return state_->phase == Turn::State::Phase::running;
}

}  // namespace kzq
