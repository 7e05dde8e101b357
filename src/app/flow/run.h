#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

#include "app/flow/turn.h"
#include "device/link.h"
#include "operations/outcome.h"
#include "operations/pedal.h"
#include "platform/awake.h"
#include "platform/condition.h"
#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

/// What the flows have of the window.
struct FlowWindow {
    std::weak_ptr<const void> life;  ///< of all that the flows' tasks on the main thread use
    // Main thread.
    std::function<void(bool up)> shield = {};
    std::function<void()> sayBusy = {};    ///< may run an event loop
    std::function<void()> saySilent = {};  ///< the pedal has not answered for a while
    std::function<void()> freed = {};      ///< no flow lasts any more; posted
    /// A flow that was started has been waiting for one that yields, for longer than a moment; or no longer.
    std::function<void(bool waits)> waiting = {};
    /// Blocks; on a background thread. Empty: the computer may sleep.
    std::function<AwakeLock(AwakeFor)> keepAwake = {};
};

/// What all runs share.
struct FlowPlace {
    Executor& executor;
    const FlowWindow window;
    const Link link;

    std::mutex mutex{};      ///< guards what follows, and the questions that are waited for
    Condition changed{};     ///< a question has its answer, or the window has gone
    bool idleAsked = false;  ///< the pedal was asked whether it is busy, and has not answered

    /// Has `task` done on the main thread, unless the window has gone by then.
    void post(Executor::Task task) const;
};

/// A flow under way: a plain function on a thread of the pool, which may block. It reaches the window, and
/// anything else of the main thread, only by `ask`; the main thread never waits for it.
class Run : Fixed {
  public:
    Run(std::shared_ptr<FlowPlace> place, Turn given, std::shared_ptr<Pedal> thePedal)
        : turn(std::move(given)), pedal(std::move(thePedal)), place_(std::move(place)) {}

    Turn turn;
    const std::shared_ptr<Pedal> pedal;  ///< null without a link, which is never idle

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
    /// What has a task done there without waiting for it, from any thread, also after the end of the run.
    std::function<void(Executor::Task)> poster() const;

    /// Time for a panel to close before the window is covered.
    void letPanelsClose();

    /// Keeps the computer awake as long as the result lives, or until the window has gone. Does not wait for
    /// that; where it is not possible, the log says so.
    std::shared_ptr<void> keepAwake(AwakeFor work) const;

    /// How every run ends: `before` has what the window shows of it ended, and the shield goes. A pedal that
    /// was busy after all leaves them up for the rest of the program's life, deliberately. Main thread.
    void end(const Outcome& outcome, const Executor::Task& before);

    /// The rows follow what the pedal holds now.
    void refresh() const;

    /// Whether the pedal says that it is not busy; otherwise the user has been told. One that does not answer
    /// within half a second is; it blocks one thread of the pool, however often it is asked meanwhile.
    bool idle();
    /// The same without a word to the user.
    bool saysIdle();

  private:
    bool done(Executor::Task task);

    const std::shared_ptr<FlowPlace> place_;
};

}  // namespace kzq
