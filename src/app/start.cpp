#include <utility>

#include "app/app_delegate.h"
#include "app/busy_question.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "ui/panels/progress.h"

// How all operations on the pedal start and end.

namespace kzq {

namespace {

/// A healthy pedal stops before its next piece; one that has stopped answering must be reset.
constexpr auto firstInsistence = std::chrono::milliseconds(500);
constexpr auto nextInsistence = std::chrono::seconds(1);
/// Time for a panel to close before the window is covered.
constexpr auto panelsClose = std::chrono::milliseconds(100);

}  // namespace

void AppDelegate::whenIdle(std::function<void()> next) {
    if (flow_ == Flow::starting) {
        return;
    }
    if (flow_ == Flow::running) {
        sayBusy();
        return;
    }
    flow_ = Flow::starting;
    busyQuestion_->ask([weak = weak_from_this(), next = std::move(next)](bool busy) {
        const auto self = weak.lock();
        if (!self) {
            return;
        }
        if (busy) {
            self->sayBusy();
            self->endStart();
        } else {
            next();
        }
    });
}

void AppDelegate::sayBusy() {
    environment_.dialogs.run(alertWithHeadline("Device is busy. Try again later."));
}

void AppDelegate::startSoon(std::function<void(AppDelegate&)> start) {
    environment_.executor.mainAfter(panelsClose, [weak = weak_from_this(), start = std::move(start)] {
        if (const auto self = weak.lock()) {
            start(*self);
        }
    });
}

void AppDelegate::endStart() {
    flow_ = Flow::none;
}

void AppDelegate::beginRun() {
    flow_ = Flow::running;
    run_ = std::make_shared<LinkRun>();
    window_.addShield();
}

void AppDelegate::endRun() {
    window_.removeShield();
    run_->over = true;
    run_.reset();
    flow_ = Flow::none;
}

void AppDelegate::onLink(OnLink ready, OnLink operation) {
    environment_.executor.background(
        Priority::high, [ready = std::move(ready), operation = std::move(operation), run = run_,
                         end = onMain(&AppDelegate::endRefusedRun)] {
            const auto looper = KZQ7306::looper();
            const bool holds = looper && (!ready || (ready(*looper) && !run->pedalLeft));
            const bool begins = holds && !run->cancelled;
            const bool accepted = begins && operation(*looper);
            if (accepted && run->cancelled && !run->over) {
                looper->cancelTransfer();  // one from before the acceptance is forgotten by the link
            }
            run->asked = false;
            if (!begins || (!accepted && looper->disconnected())) {
                end();
            }
        });
}

/// Nothing has been done: loops that are still there are selected again and keep their names.
void AppDelegate::endRefusedRun() {
    closeProgress();
    for (const auto& [number, name] : run_->deselected) {
        auto& slot = *row(number, Slot::importContext);
        if (slot.occupied() && !run_->pedalLeft) {
            slot.setSelected(true);
            slot.setCustomImportName(name);
            selectedImportSlots_.insert(number);
            setImportAndEraseEnabled(true);
        }
    }
    endRun();
}

std::function<void()> AppDelegate::onMain(std::function<void(AppDelegate&)> task) {
    return [&executor = environment_.executor, weak = weak_from_this(), task = std::move(task)] {
        executor.main([weak, task] {
            if (const auto self = weak.lock()) {
                task(*self);
            }
        });
    };
}

TransferRun::Listener AppDelegate::transferListener(void (AppDelegate::*loopDone)(std::uint8_t slot),
                                                    std::function<void(AppDelegate&)> finished) {
    const auto whileAlive = [weak = weak_from_this()](const auto& task) {
        if (const auto self = weak.lock()) {
            task(*self);
        }
    };
    return {[whileAlive](double fraction) { whileAlive([=](auto& self) { self.setPercent(fraction); }); },
            [whileAlive, loopDone](std::uint8_t slot) {
                whileAlive([=](auto& self) { (self.*loopDone)(slot); });
            },
            [whileAlive, finished = std::move(finished)] { whileAlive(finished); }};
}

void AppDelegate::setPercent(double fraction) {
    if (progress_) {
        progress_->setPercent(fraction);
    }
}

void AppDelegate::closeProgress() {
    setPercent(1.0);
    if (progress_) {
        progress_->close();
    }
}

void AppDelegate::cancelTransfer() {
    const bool first = run_ && !run_->cancelled.exchange(true);  // seen by onLink once the link has accepted
    const auto looper = KZQ7306::looper();
    if (looper) {
        looper->cancelTransfer();
    }
    if (first) {
        run_->call = looper ? looper->callUnderWay() : 0;
        insistOnCancel(firstInsistence, run_);
    }
}

/// Repeats until the run is over: resets a pedal that leaves a transfer unanswered, and repeats a cancel that
/// came just before the link started the operation.
void AppDelegate::insistOnCancel(Executor::Duration delay, const std::shared_ptr<LinkRun>& run) {
    environment_.executor.mainAfter(delay, [weak = weak_from_this(), run] {
        const auto self = weak.lock();
        if (!self || run->over) {
            return;
        }
        self->environment_.executor.background(Priority::high, [run] {
            const auto looper = KZQ7306::looper();
            if (run->over || !looper || (!run->asked && looper->operation() == KZQ7306::idle)) {
                return;
            }
            looper->cancelTransfer();
            const auto call = looper->callUnderWay();
            if (call != 0 && call == run->call.exchange(call)) {
                looper->interrupt();
            }
        });
        self->insistOnCancel(nextInsistence, run);
    });
}

}  // namespace kzq
