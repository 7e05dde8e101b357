#pragma once

namespace kzq {

/// A base for what is neither copied nor moved.
class Fixed {
  public:
    Fixed(const Fixed&) = delete;
    Fixed& operator=(const Fixed&) = delete;
    Fixed(Fixed&&) = delete;
    Fixed& operator=(Fixed&&) = delete;

  protected:
    Fixed() = default;
    ~Fixed() = default;
};

}  // namespace kzq
