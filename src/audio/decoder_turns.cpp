#include "audio/decoder_turns.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace kzq {
namespace {

/// How often a waiting conversion looks whether it is cancelled.
constexpr std::chrono::milliseconds betweenLooks{20};

}  // namespace

DecoderTurns& DecoderTurns::ofThisProgram() {
    const auto cores = std::max(1U, std::thread::hardware_concurrency());
    // Never destroyed: conversions may still wait while the process ends.
    static auto* const turns = new DecoderTurns(cores);  // NOLINT(cppcoreguidelines-owning-memory)
    return *turns;
}

DecoderTurns::Turn DecoderTurns::take(const std::atomic<bool>* cancelled) {
    std::unique_lock lock(mutex_);
    const auto number = ++last_;
    waiting_.insert(number);
    const auto due = [&] { return free_ > 0 && *waiting_.begin() == number; };
    while (!due() && (cancelled == nullptr || !*cancelled)) {
        changed_.wait_for(lock, betweenLooks);
    }
    const bool given = due();
    free_ -= given ? 1U : 0U;
    waiting_.erase(number);
    changed_.notify_all();  // the next one may be due now
    return Turn(given ? this : nullptr);
}

std::size_t DecoderTurns::waiting() const {
    const std::lock_guard guard(mutex_);
    return waiting_.size();
}

void DecoderTurns::giveBack() {
    const std::lock_guard guard(mutex_);
    ++free_;
    changed_.notify_all();
}

}  // namespace kzq
