#pragma once

#include <functional>
#include <map>
#include <memory>

#include "listening/sound.h"
#include "loops/loops.h"
#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

/// Whether the pedal's loops may be others than they were, since the table does not show everything.
struct Doubt {
    std::uint64_t pedal = 0;      ///< KZQ7306::doubts
    Executor::Duration asleep{};  ///< how long the computer has slept in all

    /// Whether nothing has happened in between.
    bool isStill(const Doubt& earlier) const;
};

/// The loops that were read in this run. One thread.
class Shelf : Fixed {
  public:
    /// `now` is asked at each question.
    explicit Shelf(std::function<Doubt()> now) : now_(std::move(now)) {}

    /// A loop that was read whole; `begun` is the doubt at its first byte. The file of an earlier copy is
    /// removed.
    void put(SlotNumber slot, const Loop& loop, std::shared_ptr<Sound> sound, const Doubt& begun);
    /// The copy, if it counts as the pedal's; else null.
    std::shared_ptr<Sound> find(SlotNumber slot) const;
    /// It does not count any more.
    void forget(SlotNumber slot);
    /// The same for those that are not in the table as they were.
    void compareWith(const Loops& table);

  private:
    struct Copy {
        Loop loop;
        std::shared_ptr<Sound> sound;
        Doubt begun;
        bool counts = true;
    };

    const std::function<Doubt()> now_;
    std::map<SlotNumber, Copy> copies_;
};

}  // namespace kzq
