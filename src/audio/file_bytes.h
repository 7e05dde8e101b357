#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/bytes.h"
#include "platform/fixed.h"

namespace kzq {

/// Reads fields of an open file in place; the descriptor is not owned. A field that is not wholly inside the
/// file is nothing, as is every field once the reading was cancelled or has taken too much: no file can make
/// it go on for long. One thread.
class FileBytes : Fixed {
  public:
    /// More than the headers of any file that fits the pedal; 24 minutes of MP3 have 80 MiB at most.
    static constexpr std::uint64_t mostRead = 256ULL << 20U;

    FileBytes(int file, std::uint64_t size, const std::atomic<bool>* cancelled = nullptr)
        : file_(file), size_(size), cancelled_(cancelled) {}

    std::uint64_t size() const { return size_; }
    /// The number of bytes from `offset` on.
    std::uint64_t after(std::uint64_t offset) const { return offset < size_ ? size_ - offset : 0; }
    /// Whether `mostRead` has been read, so that what was found is not all that there is.
    bool exhausted() const { return read_ >= mostRead; }

    // Numbers of `width` bytes, 8 at most.
    std::optional<std::uint64_t> little(std::uint64_t offset, unsigned width) const;
    std::optional<std::uint64_t> big(std::uint64_t offset, unsigned width) const;
    /// `width` bytes, 256 at most; empty if they are missing.
    std::string text(std::uint64_t offset, unsigned width) const;
    /// The offset of the first byte other than zero from `offset` on, `limit` at most.
    std::uint64_t afterZeros(std::uint64_t offset, std::uint64_t limit) const;

  private:
    /// What is in memory from `offset` on, at least `width` bytes; empty if they are missing.
    ByteView view(std::uint64_t offset, unsigned width) const;

    static constexpr std::size_t blockSize = 1 << 14;

    int file_;
    std::uint64_t size_;
    const std::atomic<bool>* cancelled_;
    mutable std::array<std::uint8_t, blockSize> block_{};
    mutable std::uint64_t blockStart_ = 0;
    mutable std::size_t blockLength_ = 0;
    mutable std::uint64_t read_ = 0;
};

}  // namespace kzq
