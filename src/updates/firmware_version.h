#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kzq {

/// A firmware version as it is compared and shown. (0, 0, 0) means "unknown".
struct FirmwareVersion {
    std::uint64_t major = 0;
    std::uint64_t minor = 0;
    std::uint8_t suffix = 0;  ///< always 0: a trailing letter is accepted but never counts

    // clang-tidy 14 takes the 0 inside a defaulted comparison for a null pointer
    auto operator<=>(const FirmwareVersion&) const = default;  // NOLINT(modernize-use-nullptr)
};

/// Parses digits, a point, exactly two digits and at most one lower-case letter; anything else, a trailing
/// newline included, is unknown. A major number that does not fit into 64 bits becomes the highest that does.
FirmwareVersion FirmwareVersionFromString(std::string_view text);

/// A plain decimal number (digits, at most one point, a minus in front), or nothing if the whole text is
/// not one. Independent of the locale.
std::optional<double> numberWithString(std::string_view text);

}  // namespace kzq
