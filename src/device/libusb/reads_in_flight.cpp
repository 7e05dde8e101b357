#include "device/libusb/reads_in_flight.h"

#include <libusb.h>

#include <algorithm>
#include <iterator>
#include <ranges>

namespace kzq {

int ReadsInFlight::read(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                        std::size_t& transferred) {
    transferred = 0;
    // One that cannot be submitted has failed only when it is its turn.
    if (const int result = submit(endpoint, due); underWay_.empty()) {
        return result;
    }
    Read& next = underWay_.front();
    next.transfer.wait();
    next.length = std::min(next.length, next.transfer.moved());
    const auto piece = next.rest().first(std::min(next.rest().size(), into.size()));
    std::ranges::copy(piece, into.begin());
    transferred = piece.size();
    next.taken += piece.size();
    const int result = next.transfer.result();
    if (result != usbSuccess) {
        takeBack();
    } else if (next.rest().empty()) {
        spare_.splice(spare_.end(), underWay_, underWay_.begin());
    }
    return result;
}

/// The last piece, which is shorter, goes alone: after a short read before it, it would be too small for the
/// packet that comes.
int ReadsInFlight::submit(std::uint8_t endpoint, std::size_t due) {
    std::size_t asked = 0;
    for (const auto& read : underWay_) {
        asked += read.length - read.taken;
    }
    int result = LIBUSB_SUCCESS;
    for (; result == LIBUSB_SUCCESS && underWay_.size() < most_ && asked + transferPiece <= due;
         asked += transferPiece) {
        result = submitOne(endpoint, transferPiece);
    }
    return underWay_.empty() && result == LIBUSB_SUCCESS ? submitOne(endpoint, due) : result;
}

int ReadsInFlight::submitOne(std::uint8_t endpoint, std::size_t length) {
    if (spare_.empty()) {
        spare_.emplace_back();
    }
    Read& read = spare_.back();
    if (read.transfer.raw() == nullptr) {
        spare_.pop_back();
        return LIBUSB_ERROR_NO_MEM;
    }
    read.length = length;
    read.taken = 0;
    libusb_fill_bulk_transfer(read.transfer.raw(), handle_, endpoint, read.bytes.data(),
                              static_cast<int>(length), nullptr, nullptr, 0);
    const int result = read.transfer.submit();
    if (result == LIBUSB_SUCCESS) {
        underWay_.splice(underWay_.end(), spare_, std::prev(spare_.end()));
    }
    return result;
}

void ReadsInFlight::takeBack() {
    for (auto& read : std::views::reverse(underWay_)) {  // or bytes would move up
        read.transfer.cancel();
    }
    for (auto& read : underWay_) {
        read.transfer.wait();
    }
    spare_.splice(spare_.end(), underWay_);
}

}  // namespace kzq
