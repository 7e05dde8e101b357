// Arrival and departure of the pedal: by the cable, and by itself when it restarts.

#include <chrono>

#include "device/simulator/pedal_life.h"
#include "device/simulator/simulated_pedal.h"

namespace kzq::simulator {

namespace {

constexpr std::chrono::milliseconds leavingDelay{100};
constexpr std::chrono::milliseconds restartTime{1500};

}  // namespace

bool SimulatedPedal::isPlugged() const {
    const Lock lock(mutex_);
    return onBus_;
}

void SimulatedPedal::plugIn() {
    Lock lock(mutex_);
    if (onBus_) {
        return;
    }
    enterBus();
    announceNews(lock);
}

void SimulatedPedal::unplug() {
    Lock lock(mutex_);
    ++plugs_;
    if (!onBus_) {
        return;
    }
    leaveBus();
    announceNews(lock);
}

void SimulatedPedal::setListener(Listener listener) {
    const Lock lock(mutex_);
    listener_ = std::move(listener);
}

void SimulatedPedal::enterBus() {
    ++plugs_;
    onBus_ = true;
    journal_.note(WireEvent::Kind::plugged, executor_.now());
    news_.push_back({BusChange::arrived, 0, nullptr});
}

void SimulatedPedal::leaveBus() {
    ++plugs_;
    onBus_ = false;
    dropStreams();
    loader_.drop();
    silent_ = false;
    stage_ = nextStage_.value_or(stage_);
    nextStage_.reset();
    journal_.note(WireEvent::Kind::unplugged, executor_.now());
    news_.push_back({BusChange::left, 0, nullptr});
}

void SimulatedPedal::restartInto(char stage) {
    nextStage_ = stage;
    later(leavingDelay, &SimulatedPedal::leaveToRestart);
}

void SimulatedPedal::leaveToRestart() {
    leaveBus();
    later(restartTime, &SimulatedPedal::comeBack);
}

void SimulatedPedal::comeBack() {
    if (returns_) {
        enterBus();
    }
}

void SimulatedPedal::later(Executor::Duration delay, void (SimulatedPedal::*step)()) {
    executor_.mainAfter(delay, [life = life_, plugs = plugs_, step] {
        const std::lock_guard guard(life->mutex);
        SimulatedPedal* const pedal = life->pedal;
        if (pedal == nullptr) {
            return;
        }
        Lock lock(pedal->mutex_);
        if (pedal->plugs_ != plugs) {
            return;
        }
        (pedal->*step)();
        pedal->announceNews(lock);
    });
}

}  // namespace kzq::simulator
