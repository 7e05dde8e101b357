#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>

#include "loops/export_info.h"
#include "loops/frames.h"
#include "loops/loops.h"

namespace kzq {

/// What the window decides by: the pedal's table as the rows show it, the loops that are selected, and the
/// files that are staged. A table that is not complete changes nothing. One thread.
class LoopModel {
  public:
    /// What a new table has done.
    struct Change {
        std::set<SlotNumber> selected;  ///< those that were selected before and are still there
        bool overwrites = false;        ///< a staged file would overwrite a loop

        bool operator==(const Change&) const = default;
    };

    /// A pedal has arrived, or has left: nothing is selected or staged, and its table is not known.
    void reset();
    /// The first table of a pedal; what was staged since it came stays as it is. False if it is not complete.
    bool arrived(const Loops& loops);
    /// A later one. Nothing if it is not complete.
    std::optional<Change> changed(const Loops& loops);

    /// A slot without a loop is never selected.
    void select(SlotNumber slot, bool on);
    void selectAll();
    void deselectAll() { selection_.clear(); }

    enum class Staged : std::uint8_t { yes, overtaken, tooLarge };
    /// A file was put on a row: its place in the order of all of them, since a conversion may overtake
    /// another.
    std::uint64_t nextDrop() { return ++drops_; }
    /// In place of what was staged for the slot. Nothing changes unless the answer is yes.
    Staged stage(const ExportInfo& info, std::uint64_t drop);
    void unstage(SlotNumber slot) { staging_.erase(slot); }
    /// `wanted`, or if a file is staged or expected for it, the next slot with neither a file nor a loop,
    /// from the first again after the last; nothing if there is none.
    std::optional<SlotNumber> freeFrom(SlotNumber wanted, const std::multiset<SlotNumber>& expected) const;
    /// All that was staged is on the pedal.
    void sent() { staging_.clear(); }
    /// Whether a question about these is still about what is staged and about what it overwrites.
    bool stillAskedAbout(const Exports& asked) const;

    /// Another number once the pedal has left or one has arrived.
    unsigned pedal() const { return pedal_; }
    /// Empty and not complete while it is not known.
    const Loops& table() const { return table_; }
    const std::set<SlotNumber>& selection() const { return selection_; }
    const Exports& staging() const { return staging_; }
    /// Once everything staged is written.
    Frames inUse() const;
    /// The same with so many frames for a slot, in place of what is there.
    Frames inUseWith(SlotNumber slot, Frames frames) const;

  private:
    unsigned pedal_ = 0;
    Loops table_ = unknown();
    std::set<SlotNumber> selection_;
    Exports staging_;
    std::uint64_t drops_ = 0;                         ///< so far
    std::map<SlotNumber, std::uint64_t> lastStaged_;  ///< the drop that was staged last

    static Loops unknown();
};

}  // namespace kzq
