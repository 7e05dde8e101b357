#include "app/flow/flows.h"

#include <utility>

namespace kzq {

Flows::Flows(Executor& executor, FlowWindow window, Link link)
    : place_(new FlowPlace{executor, std::move(window), std::move(link)}),
      turns_(executor, place_->window.shield) {}

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

void Flows::start(Turn turn, Patience patience, Flow flow) {
    place_->executor.background(Priority::high,
                                [run = std::make_shared<Run>(place_, std::move(turn), makePedal(patience)),
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
