#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <variant>
#include <vector>

#include "ctl/speech/sentences.h"
#include "loops/capacity.h"
#include "loops/slot_number.h"
#include "platform/fixed.h"

namespace kzq::ctl {

/// The slots for `count` files: `first` and those behind it, which must be slots, or without it the first
/// free ones.
std::variant<std::vector<SlotNumber>, Explanation> slotsForExport(std::size_t count,
                                                                  std::optional<SlotNumber> first,
                                                                  const Loops& loops);

/// What makes loops shorter comes first: in this order the pedal never holds more than before or after.
std::vector<SlotNumber> inOrderOfGrowth(const Exports& exports, const Loops& loops);

/// Files that go when this goes.
class WorkingCopies : Fixed {
  public:
    ~WorkingCopies();

    void add(std::filesystem::path file) { files_.push_back(std::move(file)); }

  private:
    std::vector<std::filesystem::path> files_;
};

}  // namespace kzq::ctl
