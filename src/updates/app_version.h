#pragma once

#include <compare>
#include <optional>
#include <string_view>

namespace kzq {

/// Compares two versions of the program: whole decimal numbers separated by points, compared one by one;
/// missing ones count as 0. Nothing if a text is not such a version (at most 8 numbers, each below
/// 2^32).
std::optional<std::strong_ordering> compareAppVersions(std::string_view left, std::string_view right);

/// Whether `text` is such a version.
bool isAppVersion(std::string_view text);

}  // namespace kzq
