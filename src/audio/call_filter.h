#pragma once

#include <linux/filter.h>

#include <vector>

namespace kzq {

/// The system calls that a decoder needs, as a seccomp filter; all others do not exist for it. None if the
/// filter cannot be made. Any thread.
const std::vector<sock_filter>& callFilter();

/// Puts the calling thread under the filter, for good; errno is set on failure. Safe after a fork.
bool obeyCallFilter(const std::vector<sock_filter>& filter);

}  // namespace kzq
