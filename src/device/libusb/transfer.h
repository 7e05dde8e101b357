#pragma once

#include <cstddef>

#include "device/usb_port.h"
#include "platform/fixed.h"

struct libusb_transfer;

namespace kzq {

/// A transfer of libusb without a time limit. It is submitted, cancelled and waited for by one thread, and
/// must not be under way when it goes.
class Transfer : Fixed {
  public:
    Transfer();
    ~Transfer();

    /// To be filled in before each `submit`, but for the callback; null without memory.
    libusb_transfer* raw() { return transfer_; }
    /// LIBUSB_SUCCESS or an error of libusb's.
    int submit();
    /// Its end is still to be waited for, which may turn out to be another.
    void cancel();
    /// Until it has ended; handles events meanwhile.
    void wait();
    /// How it ended, as libusb's calls that wait have it.
    UsbResult result() const;
    /// The bytes moved.
    std::size_t moved() const;

  private:
    libusb_transfer* transfer_;
    int completed_ = 1;
};

}  // namespace kzq
