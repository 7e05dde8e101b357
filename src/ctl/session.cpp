#include "ctl/session.h"

#include <algorithm>
#include <utility>

#include "ctl/timing.h"

namespace kzq::ctl {
namespace {

constexpr Executor::Duration timeBetweenLooks = std::chrono::milliseconds(200);

}  // namespace

Session::Session(const Environment& environment, Context context, std::shared_ptr<Command> command)
    : environment_(environment),
      context_(std::move(context)),
      command_(std::move(command)),
      watching_(context_.options.subcommand == Subcommand::watch) {}

void Session::start() {
    deadline_ = context_.executor.now() + context_.options.wait;
    KZQ7306::initialize(shared_from_this());
    if (!KZQ7306::looper()) {
        context_.fail(systemVersionUnknown());
        return;
    }
    guardArrival();
    // A pedal that is already there has its turn in the main queue by now, so this task comes behind it.
    context_.executor.main([self = shared_from_this()] { self->settle(); });
}

void Session::looperIsConnected(KZQ7306& looper) {
    if (over_) {
        return;
    }
    connected_ = true;
    found_ = true;
    gaveUp_ = false;
    command_->connected(looper.shared_from_this());
}

void Session::looperHasBeenDisconnected() {
    if (over_) {
        return;
    }
    const bool was = connected_.exchange(false);
    if (was) {
        command_->disconnected();
    }
    if (was && watching_) {
        guardArrival();
        look();
    }
}

void Session::looperInternalStateChanged(const Status& status) {
    if (!over_) {
        command_->changed(status);
    }
}

void Session::settle() {
    if (!waiting()) {
        return;
    }
    if (doubtful()) {
        context_.executor.mainAfter(departureNotice, [self = shared_from_this()] { self->settle(); });
        return;
    }
    if (explainFailure()) {
        return;
    }
    if (!watching_ && context_.options.wait == Executor::Duration::zero()) {
        context_.fail(noPedalConnected(environment_.diagnose()));
        return;
    }
    if (watching_ && seen_ == Failure::none) {
        command_->disconnected();
    }
    look();
}

/// Waits for the pedal. Arrivals that work out are announced; those that do not are only seen by looking.
void Session::look() {
    if (!waiting()) {
        return;
    }
    const auto left = watching_ ? timeBetweenLooks : deadline_ - context_.executor.now();
    if (left <= Executor::Duration::zero()) {
        context_.fail(noPedalConnected(environment_.diagnose()));
        return;
    }
    context_.executor.mainAfter(std::min(left, timeBetweenLooks), [self = shared_from_this()] {
        if (self->waiting() && (self->doubtful() || !self->explainFailure())) {
            self->look();
        }
    });
}

/// A pedal that does not say what it is may just be leaving: once, its departure gets time to be told.
bool Session::doubtful() {
    const auto failure = KZQ7306::looper()->acquisitionFailure();
    return !gaveUp_ && (failure == Failure::noStage || failure == Failure::unknownStage) &&
           !std::exchange(gaveTime_, true);
}

/// Says why a pedal that is there cannot be used. Whether that was the end of the program.
bool Session::explainFailure() {
    const auto failure = KZQ7306::looper()->acquisitionFailure();
    if (gaveUp_.exchange(false)) {
        seen_ = failure;  // the reset's doing
        if (!watching_) {
            context_.fail(pedalStoppedAnswering());
            return true;
        }
        context_.output.error(pedalStoppedAnswering().sentence);
        return false;
    }
    if (std::exchange(seen_, failure) == failure) {
        return false;
    }
    const auto explanation = explainConnection(failure, environment_.diagnose());
    if (!explanation) {
        return false;
    }
    if (watching_) {
        context_.output.error(explanation->sentence);
        return false;
    }
    context_.fail(*explanation);
    return true;
}

/// The link gets hold of an arriving pedal on the main thread, so a silent one stops that. Another thread
/// notices that the main thread has no pulse.
void Session::guardArrival() {
    const auto patience = context_.options.patience;
    if (patience == Executor::Duration::zero()) {
        return;
    }
    context_.executor.background(Priority::standard, [self = shared_from_this(), patience] {
        auto& executor = self->context_.executor;
        while (self->waiting()) {
            const unsigned before = self->mainThreadPulse_;
            executor.main([self] { ++self->mainThreadPulse_; });
            executor.sleep(patience);
            if (self->waiting() && self->mainThreadPulse_ == before) {
                self->endSilence(before);
            }
        }
    });
}

/// A reset ends a request that hangs. While the pedal is opened or claimed there is nothing to reset, and
/// only the end of the program helps.
void Session::endSilence(unsigned pulse) {
    gaveUp_ = true;
    if (const auto looper = KZQ7306::looper()) {
        looper->interrupt();
    }
    context_.executor.sleep(cancelGrace);
    if (waiting() && mainThreadPulse_ == pulse) {
        context_.fail(pedalStoppedAnswering());
    }
}

}  // namespace kzq::ctl
