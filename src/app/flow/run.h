#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

#include "app/flow/turn.h"
#include "platform/condition.h"
#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

class KZQ7306;

/// What every run needs of the window and of the link.
struct FlowPlace {
    Executor& executor;
    const std::weak_ptr<const void> window;  ///< the life of what the flows' tasks on the main thread use
    const std::function<std::shared_ptr<KZQ7306>()> link;

    std::mutex mutex{};      ///< guards what follows, and the questions that are waited for
    Condition changed{};     ///< a question has its answer, or the window has gone
    bool idleAsked = false;  ///< the pedal was asked whether it is busy, and has not answered
};

/// A flow under way: a plain function on a thread of the pool, which may block. It reaches the window, and
/// anything else of the main thread, only by `ask`; the main thread never waits for it.
class Run : Fixed {
  public:
    Run(std::shared_ptr<FlowPlace> place, Turn given) : turn(std::move(given)), place_(std::move(place)) {}

    Turn turn;

    /// Has `task` done on the main thread and waits for it. What it answers, or true if that is nothing; an
    /// empty optional, or false, once the window has gone: then the flow returns.
    template <class Task>
    auto ask(Task task) {
        using Answer = std::invoke_result_t<Task&>;
        if constexpr (std::is_void_v<Answer>) {
            return done([&task] { task(); });
        } else {
            std::optional<Answer> answer;
            done([&] { answer.emplace(task()); });
            return answer;
        }
    }

    /// Whether the pedal says that it is not busy. One that does not answer within half a second is; it
    /// blocks one thread of the pool, however often it is asked meanwhile.
    bool idle();

  private:
    bool done(Executor::Task task);

    const std::shared_ptr<FlowPlace> place_;
};

}  // namespace kzq
