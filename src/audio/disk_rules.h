#pragma once

#include <string>

#include "platform/descriptor.h"

namespace kzq {

/// Landlock's rules for a child that runs `program` and reads `source`: see Cage. None if the kernel has no
/// Landlock.
Descriptor diskRules(const std::string& program, int source);

/// Puts the calling thread under them, for good; errno is set on failure. Safe after a fork.
bool obeyDiskRules(int rules);

}  // namespace kzq
