#include <algorithm>
#include <utility>

#include "device/commands.h"
#include "device/kzq7306.h"
#include "device/replies.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr std::size_t versionOffset = 4;

std::optional<std::string> asciiText(std::span<const std::uint8_t> bytes) {
    constexpr std::uint8_t lastAscii = 127;
    if (std::any_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte > lastAscii; })) {
        return std::nullopt;
    }
    return std::string(bytes.begin(), bytes.end());
}

}  // namespace

std::optional<Status> KZQ7306::status(bool full) {
    const std::lock_guard guard(*lock_);
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
std::optional<Status> KZQ7306::readStatus(bool full, bool& whole) {
    const auto stage = ask(command::stage, replyLength);
    if (!stage.reply) {
        return std::nullopt;
    }
    const auto [reply, replied] = ask(command::capacityAndVersion, replyLength);
    if (!reply) {
        return std::nullopt;
    }
    whole = stage.whole && replied;
    const auto version = asciiText(std::span(*reply).subspan(versionOffset));
    if (!version) {
        log(LogCategory::device, "status: the pedal's version is not ASCII");
        fail(Failure::noStatus);
        return std::nullopt;
    }
    Status status{loadU32(*reply, 0), *version, {}};
    {
        const std::lock_guard mirror(mirror_);
        version_ = version;
    }
    if (full && !readLoops(status.loops, whole)) {
        return std::nullopt;
    }
    return status;
}

bool KZQ7306::readLoops(Loops& loops, bool& whole) {
    constexpr std::uint8_t lastLoopsAddress = 10;
    for (const auto& [code, first] :
         {std::pair{command::firstLoops, std::uint8_t{0}}, std::pair{command::lastLoops, lastLoopsAddress}}) {
        const auto [table, replied] = ask(code, loopTableLength);
        if (!table) {
            return false;
        }
        whole = whole && replied;
        auto address = first;
        for (std::size_t offset = 0; offset < table->size(); offset += loopRecordLength, ++address) {
            const auto record = std::span(*table).subspan(offset, loopRecordLength);
            if (const auto loop = loopFromRecord(record, address)) {
                loops.emplace(static_cast<std::uint8_t>(address + 1), *loop);
            }
        }
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
    const auto reply = control(command::busy);
    if (stale != nullptr) {
        *stale = reply && reply->at(sequenceOffset) != autoincrement();
    }
    return refused(reply);
}

}  // namespace kzq
