#pragma once

#include <string>
#include <vector>

namespace kzq::ctl {

/// The one of `candidates` that `word` is most likely a misspelling of; empty when none is close.
std::string nearest(const std::string& word, const std::vector<std::string>& candidates);

}  // namespace kzq::ctl
