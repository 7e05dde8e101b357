#pragma once

#include <gmock/gmock.h>

#include <chrono>
#include <string>
#include <vector>

#include "device/simulator/simulated_pedal.h"
#include "device/wire.h"
#include "platform/little_endian.h"
#include "virtual_executor.h"

namespace kzq::simulator {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Reply {
    TransferStatus status = TransferStatus::done;
    std::size_t length = 0;
    Bytes bytes;

    bool accepted() const { return status == TransferStatus::done && bytes.at(answerOffset) == 'Y'; }
    bool refused() const { return status == TransferStatus::done && bytes.at(answerOffset) == refusal; }
};

/// Bytes that differ from their neighbours and from zero.
inline Bytes noise(std::size_t length, unsigned seed = 1) {
    Bytes bytes(length);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<std::uint8_t>(1 + (i * 31 + i / 255 + std::size_t{seed} * 7) % 255);
    }
    return bytes;
}

/// A pedal on the bus, and the requests of a correct program.
class Wire {
  public:
    explicit Wire(SimulatedPedal::Start start = {}) : pedal(executor, std::move(start)) { pedal.plugIn(); }

    Reply control(unsigned code, unsigned value = 1, unsigned index = 0, unsigned length = replyLength,
                  unsigned request = pedalRequest) {
        Reply reply;
        reply.bytes.resize(length);
        const SetupPacket setup{static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(request),
                                static_cast<std::uint16_t>(value), static_cast<std::uint16_t>(index),
                                static_cast<std::uint16_t>(length)};
        const TransferResult result = pedal.control(setup, reply.bytes);
        reply.status = result.status;
        reply.length = result.transferred;
        return reply;
    }
    Reply read(std::size_t length) {
        Reply reply;
        reply.bytes.assign(length, 0xEE);
        const TransferResult result = pedal.bulkIn(reply.bytes);
        reply.status = result.status;
        reply.length = result.transferred;
        return reply;
    }
    TransferResult write(ByteView bytes) { return pedal.bulkOut(bytes); }

    bool announce(unsigned address, bool occupied, std::size_t bytes) {
        return control(0xE2, address, occupied ? 1 : 0).accepted() &&
               control(0xE3, bytes & 0xFFFF, static_cast<unsigned>(bytes >> 16)).accepted();
    }

    test::VirtualExecutor executor;
    SimulatedPedal pedal;
};

}  // namespace kzq::simulator
