#include "ctl/speech/slot_list.h"

#include <charconv>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "loops/facts.h"

namespace kzq::ctl {
namespace {

std::optional<unsigned> numberFrom(std::string_view text) {
    unsigned number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc::result_out_of_range) {
        return loopSlots + 1;
    }
    if (error != std::errc{} || stop != end) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::pair<unsigned, unsigned>> rangeFrom(std::string_view word) {
    const auto dash = word.find('-');
    const auto first = numberFrom(word.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : numberFrom(word.substr(dash + 1));
    if (!first || !last || *first > *last) {
        return std::nullopt;
    }
    return std::pair(*first, *last);
}

}  // namespace

Result<std::vector<SlotNumber>> slotsFromWords(const std::vector<std::string>& words) {
    std::set<SlotNumber> slots;
    for (const auto& word : words) {
        const auto range = rangeFrom(word);
        if (!range) {
            return Trouble{Trouble::Kind::notASlot, word};
        }
        if (range->first == 0 || range->second > loopSlots) {
            const auto dash = word.find('-');
            const std::string wrong =
                range->first == 0 || range->first > loopSlots ? word.substr(0, dash) : word.substr(dash + 1);
            return Trouble{Trouble::Kind::noSuchSlot, wrong};
        }
        for (unsigned slot = range->first; slot <= range->second; ++slot) {
            slots.insert(*SlotNumber::of(slot));
        }
    }
    return std::vector<SlotNumber>(slots.begin(), slots.end());
}

Result<SlotNumber> slotFromWord(const std::string& word) {
    if (word.find('-') != std::string::npos) {
        return Trouble{Trouble::Kind::notASlot, word};
    }
    return slotsFromWords({word}).map([](const auto& slots) { return slots.front(); });
}

}  // namespace kzq::ctl
