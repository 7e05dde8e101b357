#pragma once

#include <atomic>
#include <cstdint>
#include <span>
#include <utility>

#include "platform/descriptor.h"

namespace kzq::simulator::usbip {

/// A stream socket. One thread reads, one writes; `hangUp` may be called from any thread, and ends both.
class Connection {
  public:
    explicit Connection(Descriptor socket) : socket_(std::move(socket)) {}

    /// Fills `into`; false if the stream ended first.
    bool read(std::span<std::uint8_t> into);
    /// False if not all could be sent.
    bool write(std::span<const std::uint8_t> from);
    void hangUp();

  private:
    Descriptor socket_;
    std::atomic<bool> hungUp_ = false;  ///< what was received before that is no longer read
};

}  // namespace kzq::simulator::usbip
