#include "app/flow/run.h"

#include <utility>

#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto patience = std::chrono::milliseconds(500);

}  // namespace

bool Run::done(Executor::Task task) {
    struct Question {
        Executor::Task task;
        bool begun = false;
        bool answered = false;
    };
    const auto question = std::make_shared<Question>();
    question->task = std::move(task);
    place_->executor.main([place = place_, question] {
        const auto window = place->window.life.lock();  // a task may run an event loop in which it is let go
        std::unique_lock lock(place->mutex);
        if (!window) {
            return;
        }
        question->begun = true;
        lock.unlock();
        question->task();
        lock.lock();
        question->answered = true;
        place->changed.notify();
    });
    std::unique_lock lock(place_->mutex);
    place_->executor.wait(lock, place_->changed, [&place = *place_, question] {
        return question->answered || (!question->begun && place.window.life.expired());
    });
    return question->answered;
}

void FlowPlace::post(Executor::Task task) const {
    executor.main([life = window.life, task = std::move(task)] {
        if (const auto alive = life.lock()) {
            task();
        }
    });
}

std::function<void(Executor::Task)> Run::poster() const {
    return [place = place_](Executor::Task task) { place->post(std::move(task)); };
}

void Run::letPanelsClose() {
    place_->executor.sleep(std::chrono::milliseconds(100));
}

std::shared_ptr<void> Run::keepAwake(AwakeFor work) const {
    const auto& ask = place_->window.keepAwake;
    auto wanted = std::make_shared<std::shared_ptr<void>>();
    if (ask) {
        place_->executor.background(Priority::high, [ask, work, weak = std::weak_ptr(wanted)] {
            auto lock = ask(work);
            if (!lock.hold) {
                log(LogCategory::application, "the computer may go to sleep: " + lock.problem);
            } else if (const auto still = weak.lock()) {
                *still = std::move(lock.hold);
            }
        });
    }
    return wanted;
}

void Run::end(const Outcome& outcome, const Executor::Task& before) {
    if (!outcome.begun && outcome.end && outcome.end->kind == Trouble::Kind::busy) {
        turn.leaveCovered();
    } else {
        before();
        turn.end();
    }
}

void Run::refresh() const {
    if (const auto looper = place_->link()) {
        looper->refresh();
    }
}

bool Run::idle() {
    const bool idle = saysIdle();
    if (!idle) {
        ask([this] { place_->window.sayBusy(); });
    }
    return idle;
}

bool Run::saysIdle() {
    const auto answer = std::make_shared<std::optional<bool>>();
    const auto tell = [place = place_, answer](bool idle) {
        const std::lock_guard guard(place->mutex);
        *answer = answer->value_or(idle);
        place->changed.notify();
    };
    std::unique_lock lock(place_->mutex);
    if (!std::exchange(place_->idleAsked, true)) {
        place_->executor.background(Priority::high, [place = place_, tell] {
            const auto looper = place->link();
            const bool idle = looper && !looper->busy();
            {
                const std::lock_guard guard(place->mutex);
                place->idleAsked = false;
            }
            tell(idle);
        });
    }
    place_->executor.mainAfter(patience, [tell] { tell(false); });
    place_->executor.wait(lock, place_->changed, [&place = *place_, answer] {
        return answer->has_value() || place.window.life.expired();
    });
    return answer->value_or(false);
}

}  // namespace kzq
