#include "operations/pedal.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "device/replies.h"
#include "device/whole_status.h"
#include "device/wire.h"
#include "operations/ended_twice.h"
#include "platform/log.h"

namespace kzq {

namespace {

/// A healthy pedal stops before its next piece; one that has stopped answering is reset.
constexpr Executor::Duration firstInsistence = std::chrono::milliseconds(500);
constexpr Executor::Duration nextInsistence = std::chrono::seconds(1);
/// What a transfer gets to end after its first reset.
constexpr Executor::Duration leaveAfter = std::chrono::seconds(2);

SlotNumber slotOf(unsigned number) {
    return SlotNumber::of(number).value();
}

std::vector<std::uint8_t> numbersOf(const std::vector<SlotNumber>& slots) {
    std::vector<std::uint8_t> numbers;
    std::ranges::transform(slots, std::back_inserter(numbers), &SlotNumber::number);
    return numbers;
}

/// Whether a loop that failed like this may mean that nobody is there any more.
bool looksGone(Trouble::Kind why) {
    return why == Trouble::Kind::noPedal || why == Trouble::Kind::noAnswer ||
           why == Trouble::Kind::noStatus || why == Trouble::Kind::transferFailed;
}

}  // namespace

/// One batch of the link. Shared with it, as a hung one may outlast its caller.
class Pedal::Batch {
  public:
    Batch(std::shared_ptr<Pedal> pedal, std::function<bool()> still)
        : pedal_(std::move(pedal)), still_(std::move(still)) {}

    /// Under the device lock, so that no other pedal can come before the first loop.
    bool begins() {
        if (pedal_->stoppedFlag_) {
            pedal_->link_->cancelTransfer();  // accepting the batch forgot it
        }
        heldBack = still_ && !still_();
        if (heldBack) {
            pedal_->begun_ = false;
        }
        return !heldBack;
    }
    void report(const Executor::Task& task) const { pedal_->whileAwaited(task); }
    void came() { trouble.reset(); }
    /// Why the loop that the link reports has failed.
    Trouble failed() {
        trouble = pedal_->link_->lastTrouble().value_or(Trouble{Trouble::Kind::noAnswer});
        return *trouble;
    }

    Done done;
    bool accepted = true;            ///< by the link
    bool heldBack = false;           ///< at its first step
    std::optional<Trouble> trouble;  ///< of the last loop

  private:
    const std::shared_ptr<Pedal> pedal_;
    const std::function<bool()> still_;
};

std::shared_ptr<Pedal> Pedal::create(Executor& executor, std::shared_ptr<KZQ7306> link, Limits limits) {
    std::shared_ptr<Pedal> pedal(new Pedal(executor, std::move(link), std::move(limits)));
    pedal->watch_.emplace(executor, pedal->link_, pedal->limits_.silence, [weak = std::weak_ptr(pedal)] {
        if (const auto self = weak.lock()) {
            self->fellSilent();
        }
    });
    return pedal;
}

Pedal::Pedal(Executor& executor, std::shared_ptr<KZQ7306> link, Limits limits)
    : executor_(executor), link_(std::move(link)), limits_(std::move(limits)) {}

void Pedal::fellSilent() {
    Executor::Task inUpdate;
    {
        const std::lock_guard guard(mutex_);
        inUpdate = silentInUpdate_;
    }
    if (inUpdate) {
        inUpdate();
    } else if (limits_.silent) {
        limits_.silent();
    } else {
        stop(Trouble{Trouble::Kind::silent});
    }
}

bool Pedal::expectRestart(Executor::Task silent) {
    const std::lock_guard guard(mutex_);
    if (!stopped_) {
        cable_ = {};
        silentInUpdate_ = std::move(silent);
    }
    return !stopped_;
}

bool Pedal::restartExpected() const {
    const std::lock_guard guard(mutex_);
    return silentInUpdate_ != nullptr;
}

Pedal::Cable Pedal::cable() const {
    const std::lock_guard guard(mutex_);
    return cable_;
}

void Pedal::left() {
    {
        const std::lock_guard guard(mutex_);
        cable_ = {cable_.departures + 1, stageNone};
    }
    if (!restartExpected()) {
        stop(Trouble{Trouble::Kind::unplugged});
    }
}

void Pedal::returned(char stage) {
    const std::lock_guard guard(mutex_);
    cable_.stage = stage;
}

void Pedal::forgetReturn() {
    returned(stageNone);
}

std::optional<Trouble> Pedal::stopped() const {
    const std::lock_guard guard(mutex_);
    return stopped_;
}

void Pedal::stop(const Trouble& why) {
    {
        const std::lock_guard guard(mutex_);
        if (stopped_) {
            return;
        }
        stopped_ = why;
        stoppedFlag_ = true;
    }
    changed_.notify();
    if (underWay()) {
        link_->cancelTransfer();
        insist(link_->callUnderWay());
    }
}

bool Pedal::underWay() const {
    const std::lock_guard guard(mutex_);
    return started_ != finished_ && !leavable_ && !unattended_;
}

/// Resets a pedal that leaves a call unanswered: `call` was out when the work was stopped. Work between two
/// calls, such as writing a file, is no silence.
void Pedal::insist(std::uint64_t call) {
    executor_.background(Priority::high, [self = shared_from_this(), call]() mutable {
        self->executor_.sleep(firstInsistence);
        for (auto left = leaveAfter; self->underWay(); left -= nextInsistence) {
            self->link_->cancelTransfer();  // accepting a batch forgets an earlier one
            const auto now = self->link_->callUnderWay();
            if (now != 0 && left <= Executor::Duration::zero() && self->limits_.leaveBehind) {
                self->leave();
                return;
            }
            if (now != 0 && now == std::exchange(call, now)) {
                self->link_->interrupt();
            }
            self->executor_.sleep(nextInsistence);
        }
    });
}

void Pedal::leave() {
    {
        const std::lock_guard guard(mutex_);
        abandoned_ = true;
    }
    changed_.notify();
}

/// Has `task` done on another thread and waits until it calls what it is given. Whether it did.
bool Pedal::perform(bool leavable, const std::function<void(Done)>& task) {
    unsigned number = 0;
    {
        const std::lock_guard guard(mutex_);
        if (stopped_) {
            return false;
        }
        number = ++started_;
        leavable_ = leavable;
    }
    const auto done = [self = shared_from_this(), number] {
        const std::lock_guard guard(self->mutex_);
        if (number <= self->finished_) {
            log(LogCategory::device, endedTwice);
            return;
        }
        self->finished_ = number;
        self->changed_.notify();
    };
    executor_.background(Priority::high, [task, done] { task(done); });
    std::unique_lock lock(mutex_);
    executor_.wait(lock, changed_, [this, number, leavable] {
        return finished_ == number || (!reporting_ && (abandoned_ || (leavable && stopped_)));
    });
    unattended_ = finished_ != number;
    return !unattended_;
}

bool Pedal::aside(const Executor::Task& task) {
    return perform(true, [task](const Done& done) {
        task();
        done();
    });
}

/// What a report refers to may be gone with the caller.
void Pedal::whileAwaited(const Executor::Task& report) {
    {
        const std::lock_guard guard(mutex_);
        if (unattended_) {
            return;
        }
        reporting_ = true;
    }
    report();
    {
        const std::lock_guard guard(mutex_);
        reporting_ = false;
    }
    changed_.notify();
}

Result<Status> Pedal::status() {
    const auto status = std::make_shared<std::optional<Status>>();
    const bool came = perform(limits_.leaveBehind, [link = link_, status](const Done& done) {
        *status = wholeStatus(*link);
        done();
    });
    if (auto why = stopped(); why || !came) {
        return std::move(why).value();
    }
    if (*status) {
        return std::move(**status);
    }
    return answers() ? Trouble{Trouble::Kind::tableIncomplete} : lose();
}

/// Whether the pedal answers. A failed request reads as zeros, which no living pedal says to the stage query.
bool Pedal::answers() {
    const auto answers = std::make_shared<bool>(false);
    perform(limits_.leaveBehind, [link = link_, answers](const Done& done) {
        const auto reply = link->control(wire::stage.code);
        *answers = reply && stageIn(*reply) != stageNone;
        done();
    });
    return *answers;
}

/// The pedal no longer answers. The news that it left may still be on their way.
Trouble Pedal::lose() {
    aside([&executor = executor_] { executor.sleep(departureNotice); });
    stop(Trouble{Trouble::Kind::silent});
    return stopped().value();
}

Result<void> Pedal::importLoops(const std::vector<SlotNumber>& slots, const Moved& moved, const Read& read,
                                const Arrived& arrived) {
    return transfer([link = link_, slots, moved, read, arrived](const std::shared_ptr<Batch>& batch) {
        KZQ7306::AudioPiece piece;
        if (arrived) {
            piece = [batch, arrived](ByteView audio, std::uint8_t slot) {
                batch->report([&] { arrived(slotOf(slot), audio); });
            };
        }
        return link->importLoops(
            numbersOf(slots),
            [batch, moved](std::uint32_t bytes, std::uint8_t slot) {
                batch->report([&] { moved(slotOf(slot), bytes); });
            },
            [batch, read](std::optional<Bytes> file, std::uint8_t slot) {
                batch->came();
                auto image = file ? Result<Bytes>(std::move(*file)) : Result<Bytes>(batch->failed());
                batch->report([&] { read(slotOf(slot), std::move(image)); });
            },
            [batch](std::uint8_t /*count*/) { batch->done(); }, piece, [batch] { return batch->begins(); });
    });
}

Result<void> Pedal::exportLoops(const Exports& exports, const Moved& moved, const Sent& sent) {
    return transfer([link = link_, exports, moved, sent](const std::shared_ptr<Batch>& batch) {
        return link->exportLoops(
            exports,
            [batch, moved](std::uint32_t bytes, std::uint8_t address) {
                batch->report([&] { moved(slotOf(address + 1U), bytes); });
            },
            [batch, sent](std::uint32_t bytes, std::uint8_t slot) {
                batch->came();
                const auto frames = bytes != 0 ? Result<Frames>(Frames::ofBytes(bytes)) : batch->failed();
                batch->report([&] { sent(slotOf(slot), frames); });
            },
            [batch](std::uint8_t /*count*/) { batch->done(); }, [batch] { return batch->begins(); });
    });
}

Result<std::size_t> Pedal::eraseLoops(const std::vector<SlotNumber>& slots) {
    const auto erased = std::make_shared<std::optional<std::size_t>>();
    const auto end = transfer([link = link_, slots, erased](const std::shared_ptr<Batch>& batch) {
        return link->eraseLoops(
            numbersOf(slots),
            [link, batch, erased](std::uint8_t count) {
                *erased = batch->heldBack ? std::nullopt : std::optional<std::size_t>(count);
                if (link->lastTrouble()) {  // of the last loop; without an answer it reads like a consent
                    batch->failed();
                }
                batch->done();
            },
            [batch] { return batch->begins(); });
    });
    // The link is idle only after its completion; until then it would refuse the next operation.
    aside([link = link_] { link->waitUntilIdle(); });
    if (*erased) {
        return **erased;
    }
    return end.error();
}

Result<void> Pedal::transfer(const Start& start) {
    begun_ = false;
    if (!stopped() && link_->factoryBlank()) {  // the link would ask it
        return Trouble{Trouble::Kind::inLoader};
    }
    const auto batch = std::make_shared<Batch>(shared_from_this(), std::exchange(still_, nullptr));
    const bool came = perform(false, [self = shared_from_this(), batch, start](const Done& done) {
        batch->done = done;
        self->begin(batch, start);
    });
    if (auto why = stopped(); why || !came) {
        return std::move(why).value();
    }
    if (batch->heldBack) {
        return Trouble{Trouble::Kind::changed, {}, 0, "played"};
    }
    const auto& trouble = batch->trouble;
    if (!batch->accepted) {
        return trouble && trouble->kind == Trouble::Kind::noPedal ? lose() : Trouble{Trouble::Kind::busy};
    }
    if (trouble && looksGone(trouble->kind) && !answers()) {
        return lose();
    }
    return {};
}

/// The link asks the pedal whether it is busy before it answers.
void Pedal::begin(const std::shared_ptr<Batch>& batch, const Start& start) {
    if (stoppedFlag_) {
        batch->done();
        return;
    }
    begun_ = true;  // before the batch can report
    if (!start(batch)) {
        begun_ = false;
        batch->accepted = false;
        batch->trouble = link_->lastTrouble();
        batch->done();
    }
}

}  // namespace kzq
