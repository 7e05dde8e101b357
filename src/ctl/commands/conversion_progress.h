#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ctl/commands/command.h"

namespace kzq::ctl {

/// Shows how far a conversion is: `what` and the length converted so far, once a second of audio, or events
/// for programs, once in ten. `context` is kept by reference.
std::function<void(std::uint64_t frames)> conversionProgress(const Context& context, std::string what,
                                                             std::string source);

}  // namespace kzq::ctl
