#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "app/flow/run.h"
#include "app/flow/turn.h"

namespace kzq {

/// Starts the flows of a window, one at a time. Main thread.
class Flows : Fixed {
  public:
    using Flow = std::function<void(Run&)>;
    struct Window {
        std::function<void(bool up)> shield;
        std::function<void()> sayBusy;   ///< may run an event loop
        std::weak_ptr<const void> life;  ///< of all that the flows' tasks use
    };

    Flows(Executor& executor, Window window, std::function<std::shared_ptr<KZQ7306>()> link);
    /// Flows that are left return at their next question.
    ~Flows();

    /// Runs `flow` on a thread of the pool. While another one starts, nothing happens; while one is running,
    /// the user is told that the pedal is busy.
    void start(Flow flow);
    /// For a flow that begins with a question in the press itself.
    void start(Turn turn, Flow flow);
    std::optional<Turn> take() { return turns_.take(); }
    bool starting() const { return turns_.starting(); }

  private:
    const std::shared_ptr<FlowPlace> place_;
    const std::function<void()> sayBusy_;
    Turns turns_;
};

}  // namespace kzq
