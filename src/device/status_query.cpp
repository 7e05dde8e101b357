#include <utility>

#include "device/kzq7306.h"
#include "device/replies.h"
#include "platform/log.h"

namespace kzq {

std::optional<Status> KZQ7306::status(bool full) {
    const std::lock_guard guard(*lock_);
    return kept(query(full));
}

Result<Status> KZQ7306::query(bool full) {
    bool whole = true;
    auto status = readStatus(full, whole);
    if (status) {
        status->loops.complete = whole;
    }
    if (full && !whole) {
        // Whoever read this may have shown it, or shows nothing: the next whole one is news, even the same.
        const std::lock_guard mirror(mirror_);
        lastStatus_.reset();
    }
    return status;
}

/// `whole` stays true while the replies come whole; a pedal that is not there is no reply.
Result<Status> KZQ7306::readStatus(bool full, bool& whole) {
    const auto stage = ask(wire::stage);
    if (!stage.reply) {
        return Trouble{Trouble::Kind::noPedal};
    }
    const auto numbers = ask(wire::capacityAndVersion);
    if (!numbers.reply) {
        return Trouble{Trouble::Kind::noPedal};
    }
    whole = stage.whole && numbers.whole;
    const auto capacity = capacityIn(*numbers.reply);
    if (!capacity) {
        log(LogCategory::device, "status: the pedal's version is not ASCII");
        whole = false;
        return Trouble{Trouble::Kind::noStatus};
    }
    Status status{capacity->remaining, capacity->version, {}};
    {
        const std::lock_guard mirror(mirror_);
        version_ = capacity->version;
    }
    if (full && !readLoops(status.loops, whole)) {
        return Trouble{Trouble::Kind::noPedal};
    }
    return status;
}

bool KZQ7306::readLoops(Loops& loops, bool& whole) {
    std::uint8_t first = 0;
    for (const auto* const command : {&wire::firstLoops, &wire::lastLoops}) {
        const auto half = ask(*command);
        if (!half.reply) {
            return false;
        }
        whole = whole && half.whole;
        addLoops(loops, *half.reply, first);
        first += recordsInReply;
    }
    return true;
}

std::uint32_t KZQ7306::remaining() {
    const std::lock_guard guard(*lock_);
    const auto now = status(false);
    return now ? now->remaining : 0;
}

std::optional<Loops> KZQ7306::loops() {
    const std::lock_guard guard(*lock_);
    auto now = status(true);
    if (!now) {
        return std::nullopt;
    }
    return std::move(now->loops);
}

bool KZQ7306::remaining(std::function<void(std::uint32_t)> block) {
    if (!block) {
        return false;
    }
    environment_.executor.background(Priority::high, [self = shared_from_this(), block = std::move(block)] {
        const std::lock_guard guard(*self->lock_);
        block(self->remaining());
    });
    return true;
}

bool KZQ7306::loops(std::function<void(std::optional<Loops>)> block) {
    if (!block) {
        return false;
    }
    environment_.executor.background(Priority::high, [self = shared_from_this(), block = std::move(block)] {
        const std::lock_guard guard(*self->lock_);
        block(self->loops());
    });
    return true;
}

bool KZQ7306::busy(bool* stale) {
    constexpr std::int32_t lastOperation = 4;
    const auto running = [this] {
        const auto now = operation();
        return now >= flashing && now <= lastOperation;
    };
    if (running()) {
        return true;
    }
    if (factoryBlank()) {
        return false;
    }
    // A batch that starts at this moment holds the lock for minutes: then the pedal is busy, without waiting.
    if (!lock_->lockUnless(running)) {
        return true;
    }
    const std::lock_guard guard(*lock_, std::adopt_lock);
    const auto answer = ask(wire::busy);
    noteUse(answer);
    if (stale != nullptr) {
        *stale = answer.reply && sequenceIn(*answer.reply) != autoincrement();
    }
    return !answer.accepted;
}

/// A pedal that is played may record over a loop without changing its length.
void KZQ7306::noteUse(const Answer& busy) {
    bool doubtful = busy.reply && !busy.accepted;
    if (busy.whole) {
        const auto sequence = sequenceIn(*busy.reply);
        doubtful |= lastSequence_.value_or(sequence) != sequence;
        lastSequence_ = sequence;
    }
    if (doubtful) {
        ++doubts_;
        environment_.executor.main([weak = weak_from_this()] {
            const auto self = weak.lock();
            if (const auto listener = self ? self->delegate() : nullptr) {
                listener->looperMayHaveChanged();
            }
        });
    }
}

}  // namespace kzq
