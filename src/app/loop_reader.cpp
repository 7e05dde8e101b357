#include "app/loop_reader.h"

#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "app/set_up.h"
#include "audio/wave.h"
#include "operations/read_loop.h"
#include "operations/table.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr auto listeningJob = "listen";

}  // namespace

/// One loop on its way. What the reading thread uses outside of `ask` is set before it starts.
struct LoopReader::Job {
    SlotNumber slot;
    Loop loop = {};
    std::optional<Trouble> impossible = {};
    decltype(AppEnvironment::runFolder) runFolder = {};
    FreeSpace freeSpace = {};
    Teller::Work work = 0;
    std::function<void(SlotNumber)> follow = {};
    std::shared_ptr<Sound> sound = {};  ///< once it arrives; main thread
    bool left = false;                  ///< nobody wants it any more; main thread
};

void LoopReader::read(SlotNumber slot) {
    if (!reads(slot)) {
        waiting_.push_back(slot);
        goOn();
    }
}

void LoopReader::leave(SlotNumber slot) {
    std::erase(waiting_, slot);
    if (current_ && current_->slot == slot) {
        current_->left = true;
        parts_.flows->stopYielding();
    }
}

bool LoopReader::reads(SlotNumber slot) const {
    return (current_ && current_->slot == slot && !current_->left) ||
           std::ranges::find(waiting_, slot) != waiting_.end();
}

std::optional<SlotNumber> LoopReader::current() const {
    return current_ ? std::optional(current_->slot) : std::nullopt;
}

std::shared_ptr<Sound> LoopReader::arriving(SlotNumber slot) const {
    return current_ && current_->slot == slot && !current_->left ? current_->sound : nullptr;
}

void LoopReader::goOn() {
    if (current_ || waiting_.empty()) {
        return;
    }
    const auto job = std::make_shared<Job>(Job{waiting_.front()});
    const auto self = shared_from_this();
    if (!parts_.flows->startYielding(transferPatience, [self, job](Run& run) { self->work(run, *job); })) {
        return;  // after the operation that lasts
    }
    waiting_.pop_front();
    current_ = job;
}

void LoopReader::work(Run& run, Job& job) {
    const bool begun = run.ask([&] {
        const auto* const loop = parts_.model.table().find(job.slot);
        job.impossible = loop == nullptr ? Trouble{Trouble::Kind::emptySlot}
                                         : impossibleLength(parts_.model.table(), {job.slot});
        job.loop = loop == nullptr ? Loop{} : *loop;
        job.runFolder = parts_.environment.runFolder;
        job.freeSpace = parts_.environment.freeSpace;
        job.work = parts_.teller.newWork({words("Stop"), [weak = weak_from_this(), slot = job.slot] {
                                              if (const auto self = weak.lock()) {
                                                  self->leave(slot);
                                              }
                                              return true;
                                          }});
        job.follow = parts_.teller.follower(job.work, run.poster(), english("Reading loop %1\u2026"));
        job.follow(job.slot);
    });
    if (begun) {
        auto read = readWhole(run, job);
        run.ask([&] { finish(run, job, std::move(read)); });
    }
}

Result<LoopReader::Read> LoopReader::readWhole(Run& run, Job& job) const {
    const Frames length{job.loop.samples};
    const auto folder = job.runFolder();
    if (job.impossible || !folder || !run.pedal) {
        return job.impossible.value_or(
            Trouble{folder ? Trouble::Kind::noPedal : Trouble::Kind::noTemporaryFolder});
    }
    if (auto full = tooLittleSpace(*folder, waveHeaderSize + length.bytes(), job.freeSpace)) {
        return std::move(*full);
    }
    auto sound = Sound::arriving(*folder, job.slot, length);
    if (!sound || !run.ask([&] { job.sound = *sound; })) {
        return sound ? Trouble{Trouble::Kind::cancelled} : sound.error();
    }
    std::optional<Doubt> begun;
    Events events;
    events.moved = [follow = job.follow](SlotNumber slot, std::uint64_t /*bytes*/) mutable { follow(slot); };
    events.arrived = [&](SlotNumber /*slot*/, ByteView audio) {
        begun = begun.value_or(doubt_());
        (*sound)->add(audio);
    };
    const auto awake = run.keepAwake(AwakeFor::transfer);
    Outcome outcome;
    const auto image = readLoop(*run.pedal, job.slot, Step::read, events, outcome);
    auto trouble = outcome.end;
    if (!trouble && !*image) {
        trouble = image->error();
    } else if (!trouble && (*image)->size() != waveHeaderSize + length.bytes()) {
        trouble = Trouble{Trouble::Kind::changedWhileRead};
    }
    if (const auto written = (*sound)->finish(trouble); !written) {
        return written.error();
    }
    return Read{job.loop, std::move(*sound), *begun};
}

void LoopReader::finish(Run& run, Job& job, Result<Read> read) {
    run.turn.end();
    current_.reset();
    if (!read && job.left) {
        read = Trouble{Trouble::Kind::cancelled};  // however it failed: nobody waits for it
    }
    if (read) {
        parts_.teller.settle(listeningJob);
    } else if (read.error().kind == Trouble::Kind::cancelled && !job.left) {
        waiting_.clear();  // an operation was started
    }
    ended_(job.slot, std::move(read));
    parts_.teller.idle(job.work);
    goOn();
}

void LoopReader::tell(SlotNumber slot, const Trouble& trouble) {
    if (isMissingRule(trouble)) {
        parts_.teller.tell(toldMissingRule(trouble), listeningJob, settingUp(parts_, trouble, {}));
        return;
    }
    parts_.teller.tell({.what = words("%1 could not be read", loopName(slot)),
                        .why = reasonFor(Deed::save, trouble),
                        .detail = adviceOn(trouble),
                        .failure = true},
                       listeningJob);
}

}  // namespace kzq
