#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace kzq::test {

/// All that is decided in a life, from '0' on: what happens, and who gets the next turn. Once it is used up,
/// every decision is the usual one.
using Trace = std::string;

struct Ended {
    bool well;
    std::string story;  ///< all that was printed
};

/// The same for the same seed.
Trace anyTrace(std::uint64_t seed);
/// A short one of those that still fail.
Trace shortened(Trace trace, const std::function<bool(const Trace&)>& fails);
/// Does it in a process of its own, so that a crash or a deadlock is a failure like others, and nothing of it
/// stays in this one. Any failure of a test in it counts.
Ended apart(const std::function<void()>& life);

}  // namespace kzq::test
