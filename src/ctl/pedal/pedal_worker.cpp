#include "ctl/pedal/pedal_worker.h"

#include <utility>

#include "ctl/pedal/status_reading.h"
#include "ctl/speech/timing.h"

namespace kzq::ctl {

/// What came of one operation. Shared with it, as a hung one may outlast its caller.
struct PedalWorker::Result {
    bool accepted = true;  ///< by the link
    bool lost = false;     ///< the pedal has stopped answering altogether
    std::optional<Trouble> trouble;
    std::optional<std::vector<std::uint8_t>> file;
    std::uint32_t sent = 0;
    std::uint8_t erased = 0;
};

PedalWorker::PedalWorker(Executor& executor, std::shared_ptr<KZQ7306> looper, Executor::Duration patience)
    : executor_(executor), looper_(std::move(looper)), limit_(patience) {}

void PedalWorker::start() {
    watch_.emplace(executor_, looper_, limit_, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->end(pedalStoppedAnswering());
        }
    });
}

void PedalWorker::rest() {
    watch_.reset();
}

std::optional<Explanation> PedalWorker::ended() const {
    const std::lock_guard guard(mutex_);
    return end_;
}

Trouble PedalWorker::trouble() const {
    const std::lock_guard guard(mutex_);
    return trouble_.value_or(Trouble{Trouble::Kind::noAnswer});
}

bool PedalWorker::transferring() const {
    const std::lock_guard guard(mutex_);
    return started_ != finished_ && !leavable_;
}

void PedalWorker::end(const Explanation& reason) {
    {
        const std::lock_guard guard(mutex_);
        if (end_) {
            return;
        }
        end_ = reason;
        endedFlag_ = true;
    }
    changed_.notify();
    if (transferring()) {
        endByForce();
    }
}

/// The link stops before its next piece. If it hangs in one, the pedal is reset; if that does not help
/// either, the work ends without it.
void PedalWorker::endByForce() {
    looper_->cancelTransfer();
    executor_.mainAfter(cancelGrace, [self = shared_from_this()] {
        if (!self->transferring()) {
            return;
        }
        self->looper_->interrupt();
        self->executor_.mainAfter(cancelGrace, [self] {
            const std::lock_guard guard(self->mutex_);
            self->abandoned_ = true;
            self->changed_.notify();
        });
    });
}

/// Starts `operation` on another thread and waits until it calls what it is given. Whether it did.
bool PedalWorker::perform(bool leavable, const std::function<void(Done)>& operation) {
    unsigned number = 0;
    {
        const std::lock_guard guard(mutex_);
        if (end_) {
            return false;
        }
        number = ++started_;
        leavable_ = leavable;
    }
    const auto done = [self = shared_from_this(), number] {
        const std::lock_guard guard(self->mutex_);
        self->finished_ = number;
        self->changed_.notify();
    };
    executor_.background(Priority::high, [operation, done] { operation(done); });
    std::unique_lock lock(mutex_);
    executor_.wait(lock, changed_, [this, number, leavable] {
        return finished_ == number || abandoned_ || (leavable && end_);
    });
    return finished_ == number;
}

bool PedalWorker::attempt(std::function<void()> task) {
    return perform(true, [task = std::move(task)](const Done& done) {
        task();
        done();
    });
}

std::optional<Status> PedalWorker::status() {
    const auto reading = std::make_shared<StatusReading>();
    const bool came = perform(true, [looper = looper_, reading](const Done& done) {
        *reading = readStatus(*looper);
        done();
    });
    if (!came || ended()) {
        return std::nullopt;
    }
    if (!reading->answers) {
        lose();
    } else if (!reading->status) {
        end(statusUnreadable());
    }
    return reading->status;
}

std::optional<std::vector<std::uint8_t>> PedalWorker::importLoop(SlotNumber slot, Progress progress) {
    const auto result =
        transfer([this, slot, progress = std::move(progress)](const auto& shared, const Done& done) {
            const auto self = shared_from_this();
            return looper_->importLoops(
                {slot.number()}, [self, progress](std::uint32_t bytes, std::uint8_t) { progress(bytes); },
                [self, shared](auto file, std::uint8_t) {
                    shared->file = std::move(file);
                    if (!shared->file) {
                        self->inspect(*shared);
                    }
                },
                [done](std::uint8_t) { done(); });
        });
    return result ? std::move(result->file) : std::nullopt;
}

bool PedalWorker::exportLoop(const ExportInfo& info, Progress progress) {
    const auto result =
        transfer([this, info, progress = std::move(progress)](const auto& shared, const Done& done) {
            const auto self = shared_from_this();
            return looper_->exportLoops(
                {{*SlotNumber::of(info.destination), info}},
                [self, progress](std::uint32_t bytes, std::uint8_t) { progress(bytes); },
                [self, shared](std::uint32_t sent, std::uint8_t) {
                    shared->sent = sent;
                    if (sent == 0) {
                        self->inspect(*shared);
                    }
                },
                [done](std::uint8_t) { done(); });
        });
    return result && result->sent != 0;
}

std::optional<std::uint8_t> PedalWorker::eraseLoops(const std::vector<SlotNumber>& slots) {
    std::vector<std::uint8_t> numbers;
    std::ranges::transform(slots, std::back_inserter(numbers), &SlotNumber::number);
    const auto result = transfer([this, numbers](const auto& shared, const Done& done) {
        const auto self = shared_from_this();
        return looper_->eraseLoops(numbers,
                                   [self, shared, done, count = numbers.size()](std::uint8_t erased) {
                                       shared->erased = erased;
                                       if (erased != count) {
                                           self->inspect(*shared);
                                       }
                                       done();
                                   });
    });
    // The link is idle only after its completion; until then it would refuse the next operation.
    attempt([looper = looper_] { looper->waitUntilIdle(); });
    return result ? std::optional(result->erased) : std::nullopt;
}

/// Null when it never came to its end.
std::shared_ptr<PedalWorker::Result> PedalWorker::transfer(const Batch& batch) {
    auto result = std::make_shared<Result>();
    begun_ = false;
    const bool came = perform(false, [self = shared_from_this(), result, batch](const Done& done) {
        self->begin(result, batch, done);
    });
    if (!came) {
        return nullptr;
    }
    if (!ended()) {
        settle(*result);
    }
    return result;
}

/// The link asks the pedal whether it is busy before it answers.
void PedalWorker::begin(const std::shared_ptr<Result>& result, const Batch& batch, const Done& done) {
    if (endedFlag_) {
        done();
        return;
    }
    begun_ = true;  // before the batch can report
    if (!batch(result, done)) {
        begun_ = false;
        result->accepted = false;
        result->trouble = looper_->lastTrouble();
        done();
    } else if (endedFlag_) {
        looper_->cancelTransfer();  // accepting a batch forgot it
    }
}

/// Why a loop failed; called before the link goes on.
void PedalWorker::inspect(Result& result) {
    result.trouble = looper_->lastTrouble();
    result.lost = !looper_->cancel() && !pedalAnswers(*looper_);
}

void PedalWorker::settle(const Result& result) {
    {
        const std::lock_guard guard(mutex_);
        trouble_ = result.trouble;
    }
    const bool gone = result.trouble && result.trouble->kind == Trouble::Kind::noPedal;
    if (result.lost || (!result.accepted && gone)) {
        lose();
    } else if (!result.accepted) {
        end(pedalBusy());
    }
}

/// The pedal no longer answers. The news that it left may still be on their way.
void PedalWorker::lose() {
    attempt([&executor = executor_] { executor.sleep(departureNotice); });
    end(pedalStoppedAnswering());
}

}  // namespace kzq::ctl
