#include "ctl/import_command.h"

#include <algorithm>
#include <utility>

#include "ctl/folder_check.h"
#include "ctl/format.h"
#include "ctl/timing.h"
#include "platform/new_file.h"

namespace kzq::ctl {

/// What came of one loop.
struct ImportCommand::Outcome {
    std::uint8_t slot = 0;
    std::uint64_t bytes = 0;
    NewFile file;                     ///< meaningful when something was read
    Failure failure = Failure::none;  ///< of the reading
    bool lost = false;                ///< the pedal has stopped answering altogether
};

ImportCommand::ImportCommand(Context context)
    : context_(std::move(context)), report_(context_.output, context_.options.json) {}

std::optional<Explanation> ImportCommand::obstacle() {
    return folderObstacle(context_.options.folder);
}

void ImportCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (looper->factoryBlank()) {
        context_.fail(pedalInLoader());
        return;
    }
    looper_ = looper;
    patience_ =
        std::make_shared<Patience>(context_.executor, context_.options.patience, [weak = weak_from_this()] {
            if (const auto self = weak.lock()) {
                self->silent();
            }
        });
    patience_->start();
    readStatus(context_.executor, looper,
               [self = shared_from_this()](const StatusReading& reading) { self->choose(reading); });
}

void ImportCommand::disconnected() {
    summary_.unplugged = true;
}

void ImportCommand::choose(const StatusReading& reading) {
    if (concluded_) {
        return;
    }
    if (!reading.status) {
        lost_ = !reading.answers;
        if (lost_) {
            concludeWithoutPedal();
        } else {
            context_.fail(statusUnreadable());
        }
        return;
    }
    slots_ = context_.options.slots;
    if (context_.options.all) {
        for (const auto& [slot, loop] : reading.status->loops) {
            slots_.push_back(slot);
        }
    }
    summary_.wanted = slots_.size();
    if (slots_.empty()) {
        conclude();
    } else {
        begin(reading.status->loops);
    }
}

void ImportCommand::begin(const Loops& loops) {
    std::uint64_t total = 0;
    for (const auto slot : slots_) {
        const auto loop = loops.find(slot);
        if (loop != loops.end()) {
            total += loop->second.alignedBytes;
        }
    }
    meter_.emplace(total, context_.executor.now());
    batch_ = true;
    showProgress();
    const auto progress = [self = shared_from_this()](std::uint32_t bytes, std::uint8_t slot) {
        self->received_ = bytes;
        self->current_ = slot;
        self->patience_->touch();
    };
    const auto partial = [self = shared_from_this()](const std::optional<std::vector<std::uint8_t>>& file,
                                                     std::uint8_t slot) {
        self->context_.executor.main([self, outcome = self->save(file, slot)] { self->arrived(outcome); });
    };
    const auto completion = [self = shared_from_this()](std::uint8_t) {
        self->context_.executor.main([self] { self->completed(); });
    };
    // The link asks the pedal whether it is busy before it answers.
    context_.executor.background(Priority::high, [self = shared_from_this(), progress, partial, completion] {
        const bool yes = self->looper_->importLoops(self->slots_, progress, partial, completion);
        const auto failure = self->looper_->lastFailure();
        self->context_.executor.main([self, yes, failure] { self->accepted(yes, failure); });
    });
}

void ImportCommand::accepted(bool yes, Failure failure) {
    if (concluded_) {
        return;
    }
    if (yes) {
        // Accepting a batch forgets an earlier cancel.
        if (ending_) {
            looper_->cancelTransfer();
        }
    } else if (ending_) {
        conclude();
    } else if (failure == Failure::noPedal) {
        lost_ = true;
        concludeWithoutPedal();
    } else {
        context_.output.endProgress();
        concluded_ = true;
        context_.fail(pedalBusy());
    }
}

/// Writes the loop's file, or finds out why there is none. Ends the batch when the next loop cannot fare
/// better.
ImportCommand::Outcome ImportCommand::save(const std::optional<std::vector<std::uint8_t>>& file,
                                           std::uint8_t slot) {
    Outcome outcome{.slot = slot, .file = {}};
    if (!file) {
        outcome.failure = looper_->lastFailure();
        outcome.lost = !looper_->cancel() && !pedalAnswers(*looper_);
    } else {
        patience_->suspend();
        outcome.bytes = file->size();
        if (!std::exchange(folderMade_, true)) {  // only once: a folder that vanishes later is a lost disk
            makeFolder(context_.options.folder);
        }
        outcome.file = writeNewFile(context_.options.folder, "Loop " + std::to_string(slot), ".wav", *file);
        patience_->touch();
    }
    if (outcome.lost || !outcome.file) {
        looper_->cancelTransfer();
    }
    return outcome;
}

void ImportCommand::arrived(const Outcome& outcome) {
    if (concluded_) {
        return;
    }
    lost_ = lost_ || outcome.lost;
    context_.output.endProgress();  // it is about this loop; the next one brings its own
    if (!outcome.file) {
        summary_.fileError = true;
        report_.notWritten(outcome.slot, context_.options.folder, outcome.file.error);
    } else if (outcome.failure == Failure::none) {
        ++summary_.saved;
        report_.saved(outcome.slot, outcome.file.path, outcome.bytes);
    } else if (!ending_ && !outcome.lost && outcome.failure != Failure::cancelled) {
        summary_.failures.push_back(explainLoop(outcome.failure));
        report_.failed(outcome.slot, outcome.failure);
    }
}

void ImportCommand::completed() {
    if (lost_ && !ending_) {
        concludeWithoutPedal();
    } else {
        conclude();
    }
}

void ImportCommand::cancel() {
    summary_.cancelled = true;
    if (patience_) {
        patience_->stop();
    }
    endBatch();
}

void ImportCommand::silent() {
    summary_.silent = true;
    endBatch();
}

/// The link stops before its next piece. If it hangs in one, the pedal is reset; if that does not help
/// either, the program ends without it.
void ImportCommand::endBatch() {
    if (!batch_) {
        conclude();
        return;
    }
    looper_->cancelTransfer();
    if (std::exchange(ending_, true)) {
        return;
    }
    context_.executor.mainAfter(cancelGrace, [self = shared_from_this()] {
        if (self->concluded_) {
            return;
        }
        self->looper_->interrupt();
        self->context_.executor.mainAfter(cancelGrace, [self] { self->conclude(); });
    });
}

/// The news that the pedal left may still be on their way.
void ImportCommand::concludeWithoutPedal() {
    if (patience_) {
        patience_->stop();
    }
    context_.executor.mainAfter(departureNotice, [self = shared_from_this()] { self->conclude(); });
}

void ImportCommand::conclude() {
    if (std::exchange(concluded_, true)) {
        return;
    }
    if (patience_) {
        patience_->stop();
    }
    summary_.silent = summary_.silent || (lost_ && !summary_.unplugged);
    report_.finished(summary_);
    context_.finish(summary_.exitCode());
}

void ImportCommand::showProgress() {
    if (concluded_ || !context_.output.terminal() || context_.options.json) {
        return;
    }
    meter_->update(received_, context_.executor.now());
    const auto place = std::find(slots_.begin(), slots_.end(), current_);
    if (place != slots_.end()) {
        context_.output.progress("Loop " + std::to_string(*place) + " (" +
                                 std::to_string(place - slots_.begin() + 1) + " of " +
                                 std::to_string(slots_.size()) + "): " + meter_->text());
    }
    context_.executor.mainAfter(progressPeriod, [self = shared_from_this()] { self->showProgress(); });
}

}  // namespace kzq::ctl
