#pragma once

#include <unistd.h>

#include <utility>

namespace kzq {

/// Owns a file descriptor and closes it; negative means none.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { close(); }

    explicit operator bool() const { return number_ >= 0; }
    int get() const { return number_; }
    void close() {
        if (const int number = std::exchange(number_, -1); number >= 0) {
            ::close(number);
        }
    }

  private:
    int number_ = -1;
};

}  // namespace kzq
