#pragma once

#include <string>

namespace kzq {

/// What the system says about an errno value: "No space left on device". In English, for words() to look up;
/// only what hardly ever happens is in the language of the C library. Any thread.
std::string systemReason(int error);

}  // namespace kzq
