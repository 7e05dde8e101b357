#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>

#include "loops/loop.h"
#include "loops/slot_number.h"

namespace kzq {

/// The pedal's table: the loops by slot, in order; empty slots have no entry.
class Loops {
  public:
    using Table = std::map<SlotNumber, Loop>;

    Loops() = default;
    Loops(std::initializer_list<Table::value_type> loops) : table_(loops) {}

    /// Every reply that it was made from came whole. Otherwise its gaps say nothing, and nothing is decided
    /// by it.
    bool complete = true;

    /// Null for an empty slot.
    const Loop* find(SlotNumber slot) const {
        const auto found = table_.find(slot);
        return found == table_.end() ? nullptr : &found->second;
    }
    bool contains(SlotNumber slot) const { return table_.contains(slot); }
    /// In place of what was there.
    void put(SlotNumber slot, const Loop& loop) { table_.insert_or_assign(slot, loop); }
    void remove(SlotNumber slot) { table_.erase(slot); }

    Table::const_iterator begin() const { return table_.begin(); }
    Table::const_iterator end() const { return table_.end(); }
    std::size_t size() const { return table_.size(); }
    bool empty() const { return table_.empty(); }
    bool operator==(const Loops&) const = default;

  private:
    Table table_;
};

}  // namespace kzq
