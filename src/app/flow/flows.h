#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "app/flow/run.h"
#include "app/flow/turn.h"

namespace kzq {

/// What is done about a USB call that stays unanswered for so long.
struct Patience {
    Executor::Duration limit{};
    bool stops = false;  ///< the operation, if it cannot be cancelled; otherwise the user is told
};
inline constexpr Patience transferPatience{.limit = std::chrono::seconds(10)};

/// Starts the flows of a window, one at a time. Main thread.
class Flows : Fixed {
  public:
    using Flow = std::function<void(Run&)>;
    Flows(Executor& executor, FlowWindow window, Link link);
    /// Flows that are left return at their next question.
    ~Flows();

    /// Runs `flow` on a thread of the pool. While another one starts, nothing happens; while one is running,
    /// the user is told that the pedal is busy.
    void start(Patience patience, Flow flow);
    /// For a flow that begins with a question in the press itself.
    void start(Turn turn, Patience patience, Flow flow);
    /// The right to start the next one; it ends a flow that yields. Nothing while another one lasts.
    std::optional<Turn> take();
    /// For a part of a run that needs a patience of its own; what happens meanwhile ends it as well. Null
    /// without a link.
    std::shared_ptr<Pedal> makePedal(Patience patience);
    bool starting() const { return turns_.starting(); }
    bool running() const { return turns_.running(); }

    /// For a flow beside all others: as soon as another one is started, this one is stopped, and the other
    /// one waits for its end. False, and nothing happens, while another one lasts.
    bool startYielding(Patience patience, Flow flow);
    bool yielding() const { return turns_.yielding(); }
    /// Stops that flow.
    void stopYielding();

    // What happens meanwhile, for all runs.

    /// An update of the firmware goes on.
    void cancel();
    void pedalLeft();
    void pedalReturned(char stage);

  private:
    /// A flow that yields.
    struct Yielding {
        std::shared_ptr<Pedal> pedal;
        bool over = false;
        bool awaited = false;  ///< the user has been told that its end is waited for
    };
    /// Its end, however it comes.
    class EndOfYielding;

    void begin(Turn turn, std::shared_ptr<Pedal> pedal, Flow flow);
    void sayIfItLasts(const std::shared_ptr<Yielding>& flow);
    void forEach(const std::function<void(Pedal&)>& task);

    const std::shared_ptr<FlowPlace> place_;
    Turns turns_;
    std::shared_ptr<Yielding> yielding_;        ///< the last one, which may be over
    std::vector<std::weak_ptr<Pedal>> pedals_;  ///< of runs, some of which are over
};

}  // namespace kzq
