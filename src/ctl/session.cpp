#include "ctl/session.h"

#include <algorithm>
#include <utility>

#include "ctl/speech/timing.h"

namespace kzq::ctl {
namespace {

constexpr Executor::Duration timeBetweenLooks = std::chrono::milliseconds(200);

}  // namespace

Session::Session(const Environment& environment, Context context, std::shared_ptr<Command> command)
    : environment_(environment),
      context_(std::move(context)),
      command_(std::move(command)),
      watching_(context_.options.subcommand == Subcommand::watch) {}

void Session::start(const Link& link) {
    deadline_ = context_.executor.now() + context_.options.wait;
    KZQ7306::initialize(shared_from_this());
    looper_ = link();
    if (!looper_) {
        context_.fail(Trouble{Trouble::Kind::noSystemVersion});
        return;
    }
    watchArrival();
    // A pedal that is already there has its turn in the main queue by now, so this task comes behind it.
    context_.executor.main([self = shared_from_this()] { self->settle(); });
}

void Session::looperIsConnected(KZQ7306& looper) {
    if (over_) {
        return;
    }
    connected_ = true;
    found_ = true;
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
        context_.fail(foundAbout({Trouble::Kind::noPedal}, environment_.diagnose()));
        return;
    }
    if (watching_ && !seen_) {
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
        context_.fail(inUse_ ? *inUse_ : foundAbout({Trouble::Kind::noPedal}, environment_.diagnose()));
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
    const auto trouble = looper_->acquisitionTrouble();
    return trouble &&
           (trouble->kind == Trouble::Kind::noStage || trouble->kind == Trouble::Kind::unknownStage) &&
           !std::exchange(gaveTime_, true);
}

/// Says why a pedal that is there cannot be used. Whether that was the end of the program.
bool Session::explainFailure() {
    const auto trouble = looper_->acquisitionTrouble();
    if (std::exchange(seen_, trouble) == trouble) {
        return false;
    }
    inUse_.reset();
    if (!trouble || trouble->kind == Trouble::Kind::noPedal) {
        return false;
    }
    const auto found = foundAbout(*trouble, environment_.diagnose());
    if (trouble->kind == Trouble::Kind::heldByAnother && context_.options.wait > Executor::Duration::zero()) {
        inUse_ = found;
    }
    if (watching_ || inUse_) {
        context_.output.error(pedalSentence(found));
        return false;
    }
    context_.fail(found);
    return true;
}

/// The link resets a pedal that arrives and is silent. If that does not help, or while the pedal is opened
/// and claimed, where there is nothing to reset, only the end of the program does: the main thread waits.
void Session::watchArrival() {
    const auto patience = context_.options.patience;
    if (patience > Executor::Duration::zero()) {
        watch_.emplace(context_.executor, looper_, patience + cancelGrace, [weak = weak_from_this()] {
            const auto self = weak.lock();
            if (self && self->waiting()) {
                self->context_.fail(Trouble{Trouble::Kind::silent});
            }
        });
    }
}

}  // namespace kzq::ctl
