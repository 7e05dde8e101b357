#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <set>

#include "platform/fixed.h"

namespace kzq {

/// So many conversions decode at once; the others wait in the order in which they came. Any thread.
class DecoderTurns : Fixed {
    struct GiveBack {
        void operator()(DecoderTurns* turns) const { turns->giveBack(); }
    };

  public:
    /// Given back when it goes.
    using Turn = std::unique_ptr<DecoderTurns, GiveBack>;

    /// As many as the computer has cores, for all conversions of this process.
    static DecoderTurns& ofThisProgram();

    /// It outlives its turns and those who wait for one.
    explicit DecoderTurns(std::size_t atOnce) : atOnce_(atOnce), free_(atOnce) {}

    std::size_t atOnce() const { return atOnce_; }

    /// Blocks until it is the caller's turn. None once `cancelled` is set, within 20 ms, unless one is free.
    Turn take(const std::atomic<bool>* cancelled);
    /// How many wait.
    std::size_t waiting() const;

  private:
    void giveBack();

    const std::size_t atOnce_;
    mutable std::mutex mutex_;  ///< guards what follows
    std::condition_variable changed_;
    std::size_t free_;
    std::uint64_t last_ = 0;
    std::set<std::uint64_t> waiting_;  ///< their numbers, the first one first
};

}  // namespace kzq
