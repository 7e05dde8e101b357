#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kzq::ctl {

/// The slots that `words` name, each a number or a range such as "3-5": ascending, each once. Nothing, with a
/// sentence in `error`, when a word is neither or a slot is not from 1 to 20.
std::optional<std::vector<std::uint8_t>> slotsFromWords(const std::vector<std::string>& words,
                                                        std::string& error);

}  // namespace kzq::ctl
