#include "updates/firmware_version.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace kzq {
namespace {

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool isLowerCaseLetter(char c) {
    return c >= 'a' && c <= 'z';
}

/// The value of `digits`, all decimal; the highest representable number if it is larger.
std::uint64_t wholeNumber(std::string_view digits) {
    std::uint64_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc{} ? number : std::numeric_limits<std::uint64_t>::max();
}

}  // namespace

FirmwareVersion FirmwareVersionFromString(std::string_view text) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos) {
        return {};
    }
    const std::string_view major = text.substr(0, point);
    std::string_view minor = text.substr(point + 1);
    // The letter is read as a number, which it never is, so it does not count.
    if (minor.size() == 3 && isLowerCaseLetter(minor.back())) {
        minor.remove_suffix(1);
    }
    if (major.empty() || minor.size() != 2) {
        return {};
    }
    if (!std::ranges::all_of(major, isDigit) || !std::ranges::all_of(minor, isDigit)) {
        return {};
    }
    return {wholeNumber(major), wholeNumber(minor), 0};
}

std::optional<double> numberWithString(std::string_view text) {
    // from_chars would also accept exponents, infinity and not-a-number.
    const bool plain = std::ranges::all_of(text, [](char c) { return isDigit(c) || c == '.' || c == '-'; });
    if (!plain) {
        return std::nullopt;
    }
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc{} || result.ptr != end) {
        return std::nullopt;
    }
    return number;
}

}  // namespace kzq
