#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
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
    parts_->environment.dialogs.run(alertWithHeadline("Device is busy. Try again later."));
}

void AppDelegate::startSoon(std::function<void(AppDelegate&)> start) {
    parts_->environment.executor.mainAfter(panelsClose, [weak = weak_from_this(), start = std::move(start)] {
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
    parts_->window.addShield();
}

void AppDelegate::endRun() {
    parts_->window.removeShield();
    run_->over = true;
    run_.reset();
    flow_ = Flow::none;
}

void AppDelegate::onLink(OnLink ready, OnLink operation) {
    parts_->environment.executor.background(
        Priority::high,
        [link = parts_->environment.link, ready = std::move(ready), operation = std::move(operation),
         run = run_, end = onMain(&AppDelegate::endRefusedRun)] {
            const auto looper = link();
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
    parts_->transferPanel.close();
    for (const auto& [number, name] : run_->deselected) {
        auto& slot = *parts_->rows.importRow(number);
        if (slot.occupied() && !run_->pedalLeft) {
            slot.setSelected(true);
            slot.setCustomImportName(name);
            parts_->model.select(number, true);
            parts_->presenter.selection();
        }
    }
    endRun();
}

std::function<void()> AppDelegate::onMain(std::function<void(AppDelegate&)> task) {
    return [&executor = parts_->environment.executor, weak = weak_from_this(), task = std::move(task)] {
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
    return {[whileAlive](double fraction) {
                whileAlive([=](auto& self) { self.parts_->transferPanel.setPercent(fraction); });
            },
            [whileAlive, loopDone](std::uint8_t slot) {
                whileAlive([=](auto& self) { (self.*loopDone)(slot); });
            },
            [whileAlive, finished = std::move(finished)] { whileAlive(finished); }};
}

std::optional<Loop> AppDelegate::shownIn(SlotNumber slot) const {
    const auto* const loop = parts_->model.table().find(slot);
    return loop == nullptr ? std::nullopt : std::optional(*loop);
}

void AppDelegate::cancelTransfer() {
    const bool first = run_ && !run_->cancelled.exchange(true);  // seen by onLink once the link has accepted
    const auto looper = parts_->environment.link();
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
    parts_->environment.executor.mainAfter(delay, [weak = weak_from_this(), run] {
        const auto self = weak.lock();
        if (!self || run->over) {
            return;
        }
        self->parts_->environment.executor.background(
            Priority::high, [link = self->parts_->environment.link, run] {
                const auto looper = link();
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
