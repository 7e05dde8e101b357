#pragma once

#include "device/simulator/usbip/transfer_queue.h"

struct usbredirparser;

namespace kzq::simulator {

// What is sent to QEMU. It is queued in the parser, which does not send it by itself.

/// Describes the pedal. QEMU plugs it in once it knows the interface and the endpoints.
void introducePedal(usbredirparser& parser);

/// `status`: one of usbredir's; `moved`: the bytes that were transferred.
void answer(usbredirparser& parser, const usbip::Transfer& transfer, std::uint8_t status, std::size_t moved);

}  // namespace kzq::simulator
