#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "listening/shelf.h"
#include "loops/slot_number.h"
#include "operations/told.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

class Run;
struct AppParts;

/// Reads loops from the pedal into this run's folder, one after the other, beside the window: an operation
/// that is started ends it. Main thread, since the launch.
class LoopReader : public std::enable_shared_from_this<LoopReader>, Fixed {
  public:
    /// What was read, and the doubt at its first byte.
    struct Read {
        Loop loop;
        std::shared_ptr<Sound> sound;
        Doubt begun;
    };
    /// A loop was read, or not, which has not been said; what is still waiting comes later.
    using Ended = std::function<void(SlotNumber, Result<Read>)>;

    /// `parts` outlives it. `doubt` is asked on any thread. Create it with std::make_shared.
    LoopReader(AppParts& parts, std::function<Doubt()> doubt, Ended ended)
        : parts_(parts), doubt_(std::move(doubt)), ended_(std::move(ended)) {}

    /// No effect if it is being read, or waits for it.
    void read(SlotNumber slot);
    /// Nobody wants it any more.
    void leave(SlotNumber slot);
    /// Nobody wants what still waits.
    void leaveWaiting() { waiting_.clear(); }
    bool reads(SlotNumber slot) const;
    bool busy() const { return current_ != nullptr; }
    /// The one that is being read.
    std::optional<SlotNumber> current() const;
    /// What there is of the loop, once it arrives; else null.
    std::shared_ptr<Sound> arriving(SlotNumber slot) const;
    /// With the next one, if the pedal is free.
    void goOn();
    /// Says that a loop could not be read.
    void tell(SlotNumber slot, const Trouble& trouble);

  private:
    struct Job;
    void work(Run& run, Job& job);
    Result<Read> readWhole(Run& run, Job& job) const;
    void finish(Run& run, Job& job, Result<Read> read);

    AppParts& parts_;
    const std::function<Doubt()> doubt_;
    const Ended ended_;
    std::deque<SlotNumber> waiting_;
    std::shared_ptr<Job> current_;
};

}  // namespace kzq
