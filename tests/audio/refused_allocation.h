#pragma once

#include <cstddef>

namespace kzq::test {

/// The size of the last allocation that the test program refused; 0 when there was none. It refuses every one
/// above 1 GiB, so that limits of gigabytes can be tested on any machine.
std::size_t refusedAllocation();

}  // namespace kzq::test
