#include "app/model/carry_plan.h"

#include <algorithm>
#include <utility>

#include "loops/capacity.h"

namespace kzq {

namespace {

/// "a, b and c"
std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
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
        return filesText(fit) + (fit == 1 ? " fits" : " fit");
    }
    return fit == 0 ? "None of " + filesText(files_.size()) + " fits"
                    : std::to_string(fit) + " of " + filesText(files_.size()) + (fit == 1 ? " fits" : " fit");
}

std::string CarryPlan::reason(std::size_t file) const {
    switch (places_[file].fate) {
        case CarryFate::fits:
            return {};
        case CarryFate::unreadable:
            return "not readable";
        case CarryFate::noRow:
            return "no other row is free";
        case CarryFate::tooLong:
            break;
    }
    const auto length = files_[file].length.value_or(Frames{});
    const bool alone = length.count >= room_.count;  // the others are not to blame
    return "too long: " + clockText(length) + ", and " + clockText(alone ? room_ : spare_) + " is left" +
           (alone ? "" : " beside the others");
}

std::string CarryPlan::complaint(std::size_t file) const {
    const auto& name = files_[file].shown;
    switch (places_[file].fate) {
        case CarryFate::tooLong:
            return name + " is " + reason(file);
        case CarryFate::unreadable:
            return name + " cannot be read";
        case CarryFate::fits:
        case CarryFate::noRow:
            break;
    }
    return "no other row is free";
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
        const auto whole = complaint(last);
        return briefly ? whole.substr(0, whole.find(':', files_[last].shown.size())) : whole;
    }
    const bool onlyRows = std::ranges::all_of(places_, [](const Place& place) {
        return place.fate == CarryFate::fits || place.fate == CarryFate::noRow;
    });
    if (onlyRows) {
        return files_.size() == 1 ? "No row is free" : "No other row is free";
    }
    return "Left out: " + listed(names);
}

std::string CarryPlan::sentence() const {
    if (!refuses()) {
        return sum();
    }
    return files_.size() == 1 ? refused(false) : sum() + ". " + refused(false);
}

std::string CarryPlan::said() const {
    if (!refuses()) {
        return sum();
    }
    return files_.size() == 1 ? refused(true) : sum() + ", " + refused(true);
}

std::string filesText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " file" : " files");
}

CarryFate fateOn(const LoopModel& model, SlotNumber slot, const CarriedFile& file) {
    if (!file.readable) {
        return CarryFate::unreadable;
    }
    return !file.length || fitsCapacity(model.inUseWith(slot, *file.length).count) ? CarryFate::fits
                                                                                   : CarryFate::tooLong;
}

}  // namespace kzq
