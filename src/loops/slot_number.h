#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "loops/facts.h"

namespace kzq {

/// The pedal's own number of a slot, 0 to 19.
class Address {
  public:
    constexpr std::uint8_t wire() const { return wire_; }
    auto operator<=>(const Address&) const = default;

  private:
    friend class SlotNumber;
    constexpr explicit Address(std::uint8_t wire) : wire_(wire) {}

    std::uint8_t wire_;
};

/// A slot as users know it, 1 to 20. It never turns into a number, or into an address, by itself.
class SlotNumber {
  public:
    /// Nothing when there is no such slot.
    static constexpr std::optional<SlotNumber> of(std::uint64_t number) {
        return number >= 1 && number <= loopSlots
                   ? std::optional(SlotNumber(static_cast<std::uint8_t>(number)))
                   : std::nullopt;
    }

    constexpr std::uint8_t number() const { return number_; }
    constexpr Address address() const { return Address(static_cast<std::uint8_t>(number_ - 1)); }
    auto operator<=>(const SlotNumber&) const = default;  // NOLINT(modernize-use-nullptr): compared with 0

  private:
    constexpr explicit SlotNumber(std::uint8_t number) : number_(number) {}

    std::uint8_t number_;
};

/// "Loop 7"
inline std::string loopName(SlotNumber slot) {
    return loopName(slot.number());
}

/// 1 to 20.
inline std::vector<SlotNumber> allSlots() {
    std::vector<SlotNumber> slots;
    for (unsigned number = 1; number <= loopSlots; ++number) {
        slots.push_back(*SlotNumber::of(number));
    }
    return slots;
}

/// 7_slot; a slot that is not there does not compile.
consteval SlotNumber operator""_slot(unsigned long long number) {
    return SlotNumber::of(number).value();
}

/// The keys of a map by slot, ascending.
template <typename BySlot>
std::vector<SlotNumber> slotsOf(const BySlot& map) {
    std::vector<SlotNumber> slots;
    slots.reserve(map.size());
    for (const auto& [slot, value] : map) {
        slots.push_back(slot);
    }
    return slots;
}

}  // namespace kzq
