#include "app/flow/flows.h"

#include <utility>

namespace kzq {

Flows::Flows(Executor& executor, Window window, std::function<std::shared_ptr<KZQ7306>()> link)
    : place_(new FlowPlace{executor, std::move(window.life), std::move(link)}),
      sayBusy_(std::move(window.sayBusy)),
      turns_(executor, std::move(window.shield)) {}

Flows::~Flows() {
    const std::lock_guard guard(place_->mutex);  // a flow that is about to wait has looked under it
    place_->changed.notify();
}

void Flows::start(Flow flow) {
    if (auto turn = take()) {
        start(std::move(*turn), std::move(flow));
    } else if (!starting()) {
        sayBusy_();
    }
}

void Flows::start(Turn turn, Flow flow) {
    place_->executor.background(Priority::high, [run = std::make_shared<Run>(place_, std::move(turn)),
                                                 flow = std::move(flow)] { flow(*run); });
}

}  // namespace kzq
