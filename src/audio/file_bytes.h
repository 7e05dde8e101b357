#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kzq {

/// Reads fields of an open file in place; the descriptor is not owned. A field that is not wholly inside the
/// file is nothing.
class FileBytes {
  public:
    FileBytes(int file, std::uint64_t size) : file_(file), size_(size) {}

    std::uint64_t size() const { return size_; }
    /// The number of bytes from `offset` on.
    std::uint64_t after(std::uint64_t offset) const { return offset < size_ ? size_ - offset : 0; }

    // Numbers of `width` bytes, 8 at most.
    std::optional<std::uint64_t> little(std::uint64_t offset, unsigned width) const;
    std::optional<std::uint64_t> big(std::uint64_t offset, unsigned width) const;
    /// `width` bytes, 256 at most; empty if they are missing.
    std::string text(std::uint64_t offset, unsigned width) const;

  private:
    int file_;
    std::uint64_t size_;
};

}  // namespace kzq
