#include "app/model/carry_plan.h"

#include <algorithm>
#include <utility>

#include "loops/capacity.h"
#include "words/words.h"

namespace kzq {

namespace {

/// "a, b and c"
std::string listed(const std::vector<std::string>& names) {
    auto text = names.front();
    for (std::size_t i = 1; i < names.size(); ++i) {
        text = i + 1 == names.size() ? words("%1 and %2", text, names[i]) : words("%1, %2", text, names[i]);
    }
    return text;
}

}  // namespace

CarryPlan::CarryPlan(const LoopModel& model, const std::vector<SlotNumber>& free,
                     std::vector<CarriedFile> files)
    : files_(std::move(files)), places_(files_.size()) {
    auto used = model.inUse().count;
    room_ = {remainingFrames(used)};
    auto next = free.begin();
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const auto& file = files_[i];
        const auto length = file.length.value_or(Frames{}).count;
        auto& [fate, slot] = places_[i];
        fate = !file.readable                 ? CarryFate::unreadable
               : !fitsCapacity(used + length) ? CarryFate::tooLong
               : next == free.end()           ? CarryFate::noRow
                                              : CarryFate::fits;
        if (fate == CarryFate::fits) {
            slot = *next++;
            used += length;
        }
    }
    spare_ = {remainingFrames(used)};
    for (auto& [fate, slot] : places_) {
        if ((fate == CarryFate::tooLong || fate == CarryFate::unreadable) && next != free.end()) {
            slot = *next++;
        }
    }
}

std::size_t CarryPlan::fitting() const {
    return static_cast<std::size_t>(std::ranges::count(places_, CarryFate::fits, &Place::fate));
}

std::string CarryPlan::sum() const {
    const auto fit = fitting();
    if (fit == files_.size()) {
        return words(fit, "%n file fits", "%n files fit");
    }
    return fit == 0 ? words(files_.size(), "The file does not fit", "None of the %n files fits")
                    : words(fit, "%n of %1 files fits", "%n of %1 files fit", files_.size());
}

std::string CarryPlan::reason(std::size_t file) const {
    switch (places_[file].fate) {
        case CarryFate::fits:
            return {};
        case CarryFate::unreadable:
            return words("not readable");
        case CarryFate::noRow:
            return words("no other row is free");
        case CarryFate::tooLong:
            break;
    }
    const auto length = clockText(files_[file].length.value_or(Frames{}));
    return isAlone(file) ? words("too long: %1, and %2 is left", length, clockText(room_))
                         : words("too long: %1, and %2 is left beside the others", length, clockText(spare_));
}

/// It is too long whatever becomes of the others.
bool CarryPlan::isAlone(std::size_t file) const {
    return files_[file].length.value_or(Frames{}).count >= room_.count;
}

std::string CarryPlan::complaint(std::size_t file) const {
    const auto& [name, shown, readable, known] = files_[file];
    const auto length = clockText(known.value_or(Frames{}));
    switch (places_[file].fate) {
        case CarryFate::tooLong:
            return isAlone(file)
                       ? words("%1 is too long: %2, and %3 is left", shown, length, clockText(room_))
                       : words("%1 is too long: %2, and %3 is left beside the others", shown, length,
                               clockText(spare_));
        case CarryFate::unreadable:
            return words("%1 cannot be read", shown);
        case CarryFate::fits:
        case CarryFate::noRow:
            break;
    }
    return words("no other row is free");
}

/// What is said about those that do not go in.
std::string CarryPlan::refused(bool briefly) const {
    std::vector<std::string> names;
    std::size_t last = 0;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        if (places_[i].fate != CarryFate::fits) {
            names.push_back(files_[i].shown);
            last = i;
        }
    }
    if (names.size() == 1 && places_[last].fate != CarryFate::noRow) {
        const bool tooLong = places_[last].fate == CarryFate::tooLong;
        return briefly && tooLong ? words("%1 is too long", files_[last].shown) : complaint(last);
    }
    const bool onlyRows = std::ranges::all_of(places_, [](const Place& place) {
        return place.fate == CarryFate::fits || place.fate == CarryFate::noRow;
    });
    if (onlyRows) {
        return files_.size() == 1 ? words("No row is free") : words("No other row is free");
    }
    return words("Left out: %1", listed(names));
}

std::string CarryPlan::sentence() const {
    if (!refuses()) {
        return sum();
    }
    return files_.size() == 1 ? refused(false) : words("%1. %2", sum(), refused(false));
}

std::string CarryPlan::said() const {
    if (!refuses()) {
        return sum();
    }
    return files_.size() == 1 ? refused(true) : words("%1, %2", sum(), refused(true));
}

CarryFate fateOn(const LoopModel& model, SlotNumber slot, const CarriedFile& file) {
    if (!file.readable) {
        return CarryFate::unreadable;
    }
    return !file.length || fitsCapacity(model.inUseWith(slot, *file.length).count) ? CarryFate::fits
                                                                                   : CarryFate::tooLong;
}

}  // namespace kzq
