#include "app/flow/flows.h"

#include <utility>

namespace kzq {

Flows::Flows(Executor& executor, FlowWindow window, Link link)
    : place_(new FlowPlace{executor, std::move(window), std::move(link)}),
      turns_(executor, place_->window.shield, [place = place_] {
          if (place->window.freed) {
              place->post(place->window.freed);
          }
      }) {}

Flows::~Flows() {
    const std::lock_guard guard(place_->mutex);  // a flow that is about to wait has looked under it
    place_->changed.notify();
}

void Flows::start(Patience patience, Flow flow) {
    if (auto turn = take()) {
        start(std::move(*turn), patience, std::move(flow));
    } else if (!starting()) {
        place_->window.sayBusy();
    }
}

void Flows::start(Turn turn, Patience patience, Flow flow) {
    if (yielding_) {
        sayIfItLasts(yielding_);
    }
    begin(std::move(turn), makePedal(patience),
          [place = place_, before = yielding_, flow = std::move(flow)](Run& run) {
              if (before) {
                  std::unique_lock lock(place->mutex);
                  place->executor.wait(lock, place->changed, [&place = *place, &before = *before] {
                      return before.over || place.window.life.expired();
                  });
              }
              flow(run);
          });
}

void Flows::sayIfItLasts(const std::shared_ptr<Yielding>& flow) {
    constexpr auto moment = std::chrono::milliseconds(500);
    place_->executor.mainAfter(moment, [place = place_, flow] {
        const auto window = place->window.life.lock();
        const std::lock_guard guard(place->mutex);
        if (window && place->window.waiting && !flow->over) {
            flow->awaited = true;
            place->post([place] { place->window.waiting(true); });
        }
    });
}

std::optional<Turn> Flows::take() {
    auto turn = turns_.take();
    if (turn) {
        stopYielding();
    }
    return turn;
}

class Flows::EndOfYielding : Fixed {
  public:
    EndOfYielding(std::shared_ptr<FlowPlace> place, std::shared_ptr<Yielding> flow)
        : place_(std::move(place)), flow_(std::move(flow)) {}
    ~EndOfYielding() {
        const std::lock_guard guard(place_->mutex);
        flow_->over = true;
        flow_->pedal.reset();
        place_->changed.notify();
        if (flow_->awaited) {
            place_->post([place = place_] { place->window.waiting(false); });
        }
    }

  private:
    const std::shared_ptr<FlowPlace> place_;
    const std::shared_ptr<Yielding> flow_;
};

bool Flows::startYielding(Patience patience, Flow flow) {
    auto turn = turns_.free() ? turns_.take() : std::nullopt;
    if (!turn) {
        return false;
    }
    turn->yield();
    yielding_ = std::make_shared<Yielding>(Yielding{makePedal(patience)});
    begin(std::move(*turn), yielding_->pedal,
          [place = place_, current = yielding_, flow = std::move(flow)](Run& run) {
              const EndOfYielding end(place, current);
              flow(run);
          });
    return true;
}

void Flows::stopYielding() {
    std::shared_ptr<Pedal> pedal;
    if (yielding_) {
        const std::lock_guard guard(place_->mutex);
        pedal = yielding_->pedal;
    }
    if (pedal) {
        pedal->stop(Trouble{Trouble::Kind::cancelled});
    }
}

std::shared_ptr<Pedal> Flows::makePedal(Patience patience) {
    Pedal::Limits limits{patience.limit};
    if (!patience.stops) {
        limits.silent = [place = place_] { place->post(place->window.saySilent); };
    }
    const auto link = place_->link();
    auto pedal = link ? Pedal::create(place_->executor, link, limits) : nullptr;
    std::erase_if(pedals_, [](const auto& other) { return other.expired(); });
    pedals_.push_back(pedal);
    return pedal;
}

void Flows::begin(Turn turn, std::shared_ptr<Pedal> pedal, Flow flow) {
    place_->executor.background(Priority::high,
                                [run = std::make_shared<Run>(place_, std::move(turn), std::move(pedal)),
                                 flow = std::move(flow)] { flow(*run); });
}

void Flows::cancel() {
    forEach([](Pedal& pedal) {
        if (!pedal.restartExpected()) {
            pedal.stop(Trouble{Trouble::Kind::cancelled});
        }
    });
}

void Flows::pedalLeft() {
    forEach([](Pedal& pedal) { pedal.left(); });
}

void Flows::pedalReturned(char stage) {
    forEach([stage](Pedal& pedal) { pedal.returned(stage); });
}

void Flows::forEach(const std::function<void(Pedal&)>& task) {
    for (const auto& weak : pedals_) {
        if (const auto pedal = weak.lock()) {
            task(*pedal);
        }
    }
}

}  // namespace kzq
