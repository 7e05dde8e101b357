#pragma once

#include <stdexcept>

namespace kzq {

/// Ends an acquisition from within; only `KZQ7306::core` throws and catches it.
class KZQ730CleanUpAndExit : public std::runtime_error {
  public:
    [[noreturn]] static void raise() { throw KZQ730CleanUpAndExit(); }

  private:
    KZQ730CleanUpAndExit() : std::runtime_error("Something went wrong during device acquisition") {}
};

}  // namespace kzq
