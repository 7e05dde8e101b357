#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "loops/capacity.h"
#include "loops/slot_number.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq::ctl {

/// The slots for `count` files: `first` and those behind it, which must be slots, or without it the first
/// free ones.
Result<std::vector<SlotNumber>> slotsForExport(std::size_t count, std::optional<SlotNumber> first,
                                               const Loops& loops);

/// Files that go when this goes.
class WorkingCopies : Fixed {
  public:
    ~WorkingCopies();

    void add(std::filesystem::path file) { files_.push_back(std::move(file)); }

  private:
    std::vector<std::filesystem::path> files_;
};

}  // namespace kzq::ctl
