#pragma once

#include <string>

namespace kzq::ctl {

enum class Answer { yes, no, nobody };

/// Asks on standard error and reads the answer from standard input; `nobody` when that is not a
/// terminal. Blocks; any thread.
Answer askOnTerminal(const std::string& question);

}  // namespace kzq::ctl
