#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kzq {

/// A firmware version as it is compared and shown. (0, 0, 0) stands for "unknown".
struct FirmwareVersion {
    std::uint64_t major = 0;
    std::uint64_t minor = 0;
    std::uint8_t suffix = 0;  ///< always 0: a trailing letter is accepted but never counts

    auto operator<=>(const FirmwareVersion&) const = default;
};

/// Parses digits, a point, exactly two digits and at most one lower-case letter; anything else is unknown.
FirmwareVersion FirmwareVersionFromString(std::string_view text);

/// A plain decimal number, or nothing when the whole text is not one.
std::optional<double> numberWithString(std::string_view text);

}  // namespace kzq
