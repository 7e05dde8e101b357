#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "app/app_parts.h"
#include "listening/shelf.h"
#include "operations/keep.h"

namespace kzq {

/// What a flow does about copies of what it is going to erase or replace.
enum class Copies : std::uint8_t { kept, none };

/// Keeps copies of loops within the run of the operation that erases or replaces them, before it does so:
/// under the cover, with a "Stop". One run.
class Keeping : Fixed {
  public:
    Keeping(AppParts& parts, Deed before, Copies copies) : parts_(parts), before_(before), copies_(copies) {}

    // --- Main thread.

    /// Once the user has agreed. Whether there is something to keep, of what `seen` has in `slots`; lengths
    /// that cannot be are left to the operation, which refuses them.
    bool plan(const std::vector<SlotNumber>& slots, const Loops& seen);
    /// The window is covered.
    void begin(Run& run);
    /// `work` is over. The operation goes on as `rest`, or not.
    void end(Teller::Work rest = 0);
    /// Says why it does not go on; `without` tries it again without copies.
    void tell(const Outcome& kept, const std::string& job, Remedy without, const Concern& concern);

    // --- The run's thread.

    bool planned() const { return !order_.slots.empty(); }
    /// Whether all of them are kept, or what kept it from that. If the pedal may have been played between the
    /// first copy and the last, which its table does not show, they are made once more; if that comes up
    /// again, it ends there: busy; unless the pedal may only have counted, both times, the loops that it
    /// sent, and the second copies are the same as the first. The first change of `run` then takes place only
    /// if nothing of the kind has come up since.
    Outcome work(Run& run);
    /// The operation has ended: its copies say so.
    void noteGone(const Outcome& operation) const;

  private:
    struct Round;
    Round copy(Run& run);

    AppParts& parts_;
    const Deed before_;
    const Copies copies_;
    KeepOrder order_{.copies = KeptCopies({}), .slots = {}, .seen = {}};
    std::shared_ptr<Pedal> pedal_;  ///< with another patience than the operation's
    std::function<Doubt()> doubt_;  ///< the window may have gone when it is asked
    Teller::Work work_ = 0;
    Events events_;
    std::string stamp_;  ///< of the copies
};

}  // namespace kzq
