#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <span>

#include "device/libusb/transfer.h"
#include "device/wire.h"
#include "platform/bytes.h"

struct libusb_device_handle;

namespace kzq {

/// Bulk reads that are submitted before their bytes are asked for, so that the pedal need not wait for the
/// next one. Bytes and failures come in the order of the reads. One thread at a time.
class ReadsInFlight : Fixed {
  public:
    /// `most` are under way at once, of at most `transferPiece` bytes each.
    ReadsInFlight(libusb_device_handle* handle, unsigned most) : handle_(handle), most_(most) {}
    ~ReadsInFlight() { takeBack(); }

    /// Like libusb_bulk_transfer, though a read may bring less than there is room for. `due` bytes, `into`
    /// included, are still to come; no more are asked for. After a failure nothing is under way.
    int read(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due, std::size_t& transferred);
    /// Ends what is under way; what it has brought is lost.
    void takeBack();

  private:
    struct Read {
        ByteView rest() const { return ByteView(bytes).first(length).subspan(taken); }

        Transfer transfer;
        std::array<std::uint8_t, transferPiece> bytes{};
        std::size_t length = 0;  ///< asked for; once it has been waited for, brought
        std::size_t taken = 0;
    };

    int submit(std::uint8_t endpoint, std::size_t due);
    int submitOne(std::uint8_t endpoint, std::size_t length);

    libusb_device_handle* handle_;
    const unsigned most_;
    std::list<Read> underWay_;
    std::list<Read> spare_;
};

}  // namespace kzq
