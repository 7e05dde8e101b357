#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/model/loop_model.h"

namespace kzq {

/// A file on its way to the rows, as far as it has been looked at.
struct CarriedFile {
    std::string name;              ///< of the file
    std::string shown;             ///< the same as a row shows it
    bool readable = true;          ///< false: converting it is sure to fail
    std::optional<Frames> length;  ///< at the pedal's rate; nothing: not known, which refuses nothing
};

enum class CarryFate : std::uint8_t { fits, tooLong, unreadable, noRow };

/// Which rows files would go to that are dropped between them: each into the next free one, as long as there
/// is room. What is refused takes no row and no room from the others.
class CarryPlan {
  public:
    struct Place {
        CarryFate fate = CarryFate::fits;
        /// Where it goes. A file that does not fit, or cannot be read, is shown on a row behind the others.
        std::optional<SlotNumber> slot;
    };

    /// `free` are the rows with neither a loop nor a file, in order.
    CarryPlan(const LoopModel& model, const std::vector<SlotNumber>& free, std::vector<CarriedFile> files);

    const std::vector<CarriedFile>& files() const { return files_; }
    /// One for each file.
    const std::vector<Place>& places() const { return places_; }
    /// "4 of 5 files fit. Whole rehearsal is too long: 22:40, and 12:09 is left"
    std::string sentence() const;
    /// The same for a screen reader: "4 of 5 files fit, Whole rehearsal is too long"
    std::string said() const;
    bool refuses() const { return fitting() != files_.size(); }
    /// "too long: 22:40, and 12:09 is left", "not readable", "no other row is free"; empty if it fits.
    std::string reason(std::size_t file) const;
    /// The same as a sentence about it.
    std::string complaint(std::size_t file) const;

  private:
    std::size_t fitting() const;
    bool isAlone(std::size_t file) const;
    std::string sum() const;
    std::string refused(bool briefly) const;

    std::vector<CarriedFile> files_;
    std::vector<Place> places_;
    Frames room_;   ///< now
    Frames spare_;  ///< once those that fit are there
};

/// What a row would make of a file that is dropped on it: the row need not be free.
CarryFate fateOn(const LoopModel& model, SlotNumber slot, const CarriedFile& file);

}  // namespace kzq
