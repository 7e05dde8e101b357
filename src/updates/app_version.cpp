#include "updates/app_version.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace kzq {
namespace {

using Numbers = std::array<std::uint32_t, 8>;

std::optional<Numbers> numbersOf(std::string_view text) {
    Numbers numbers{};
    const char* next = text.data();
    const char* const end = text.data() + text.size();
    for (auto& number : numbers) {
        const auto result = std::from_chars(next, end, number);
        if (result.ec != std::errc{}) {
            return std::nullopt;
        }
        if (result.ptr == end) {
            return numbers;
        }
        if (*result.ptr != '.') {
            return std::nullopt;
        }
        next = result.ptr + 1;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::strong_ordering> compareAppVersions(std::string_view left, std::string_view right) {
    const auto leftNumbers = numbersOf(left);
    const auto rightNumbers = numbersOf(right);
    if (!leftNumbers || !rightNumbers) {
        return std::nullopt;
    }
    return *leftNumbers <=> *rightNumbers;
}

bool isAppVersion(std::string_view text) {
    return numbersOf(text).has_value();
}

}  // namespace kzq
