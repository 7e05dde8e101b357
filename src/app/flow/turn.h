#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

/// The right to be the one operation that goes on in the window. It lives on the stack of whoever does the
/// work, so that every way out gives it back.
class Turn {
  public:
    Turn(Turn&&) noexcept = default;
    Turn& operator=(Turn&&) = delete;
    /// Ends it, from any thread; a moment later if that is not the main one.
    ~Turn();

    // Main thread.

    /// The operation has started: the shield goes up.
    void cover();
    /// The operation has started, and the window stays free.
    void occupy();
    /// The same, but the next who wants a turn takes this one, which has then ended.
    void yield();
    /// It is over: the shield goes down, and the next may begin. No effect if that was so.
    void end();
    /// The shield stays up until the program ends, and nothing else may begin. Deliberate.
    void leaveCovered();

  private:
    friend class Turns;
    struct State;
    explicit Turn(std::shared_ptr<State> state, unsigned number)
        : state_(std::move(state)), number_(number) {}

    std::shared_ptr<State> state_;  ///< null once it is over
    unsigned number_;
};

/// Gives out the turns, one at a time. Main thread.
class Turns : Fixed {
  public:
    /// `shield` covers (true) or uncovers the window; `freed` is called when a turn has ended and no other
    /// was taken. `executor` outlives it and its turns.
    Turns(Executor& executor, std::function<void(bool up)> shield, std::function<void()> freed = {});
    /// Turns that are left over end without a word.
    ~Turns();

    /// Nothing while another one lasts that does not yield.
    std::optional<Turn> take();
    /// Nobody has one.
    bool free() const;
    /// One was taken and has not covered the window: there may be a question.
    bool starting() const;
    /// It has started, and does not yield.
    bool running() const;
    /// It has started, and does.
    bool yielding() const;

  private:
    const std::shared_ptr<Turn::State> state_;
};

}  // namespace kzq
