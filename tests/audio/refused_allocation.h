#pragma once

#include <cstddef>

namespace kzq::test {

/// The size of the last allocation that the test program refused; 0 if there was none. It refuses all above
/// 1 GiB, so that limits of gigabytes can be tested on any machine.
std::size_t refusedAllocation();

}  // namespace kzq::test
