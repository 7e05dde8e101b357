#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the fuzzer with a message if a property does not hold.
inline void require(bool holds, const char* what) {
    if (holds) {
        return;
    }
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}
