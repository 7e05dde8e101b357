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
    /// It is over: the shield goes down, and the next may begin. No effect if that was so.
    void end();
    /// The shield stays up until the program ends, and nothing else may begin. Deliberate.
    void leaveCovered();

  private:
    friend class Turns;
    struct State;
    explicit Turn(std::shared_ptr<State> state) : state_(std::move(state)) {}

    std::shared_ptr<State> state_;  ///< null once it is over
};

/// Gives out the turns, one at a time. Main thread.
class Turns : Fixed {
  public:
    /// `shield` covers (true) or uncovers the window. `executor` outlives it and its turns.
    Turns(Executor& executor, std::function<void(bool up)> shield);
    /// Turns that are left over end without a word.
    ~Turns();

    /// Nothing while another one lasts.
    std::optional<Turn> take();
    /// One was taken and has not covered the window: there may be a question.
    bool starting() const;
    /// It has started.
    bool running() const;

  private:
    const std::shared_ptr<Turn::State> state_;
};

}  // namespace kzq
