#pragma once

#include <string_view>

namespace kzq {

/// What the log says when the link reports the end of the same batch once more, which does not count.
inline constexpr std::string_view endedTwice = "a batch has ended twice";

}  // namespace kzq
