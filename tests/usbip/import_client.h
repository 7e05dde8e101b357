#pragma once

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "device/simulator/usbip/connection.h"
#include "device/simulator/usbip/usbip_wire.h"
#include "device/wire.h"
#include "platform/little_endian.h"

namespace kzq::simulator::usbip {

/// A computer that imports the pedal as the kernel does. It writes the messages byte by byte as the protocol
/// defines them, so that a slip in the server's own encoding shows.
class ImportClient {
  public:
    struct Answer {
        std::uint32_t command = 0;
        std::uint32_t number = 0;
        std::int32_t status = 0;
        std::uint32_t length = 0;
        std::vector<std::uint8_t> data;
    };
    using Bytes = std::vector<std::uint8_t>;

    explicit ImportClient(const std::string& place) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port =
            htons(static_cast<std::uint16_t>(std::atoi(place.substr(place.rfind(':') + 1).c_str())));
        Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        // A server that does not answer fails the test instead of hanging it.
        const timeval patience{20, 0};
        ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        EXPECT_EQ(::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        stream_ = std::make_unique<Connection>(std::move(socket));
    }

    bool send(const Bytes& bytes) { return stream_->write(bytes); }
    Bytes receive(std::size_t length) {
        Bytes bytes(length);
        if (!stream_->read(bytes)) {
            bytes.clear();
        }
        return bytes;
    }
    bool atEnd() { return receive(1).empty(); }
    void hangUp() { stream_->hangUp(); }

    /// The status of the server's answer: 0 if the pedal is ours.
    int import(const std::string& busId = "1-1") {
        Bytes message{0x01, 0x11, 0x80, 0x03, 0, 0, 0, 0};
        message.insert(message.end(), busId.begin(), busId.end());
        message.resize(8 + 32);
        send(message);
        const Bytes header = receive(8);
        if (header.size() != 8 || header[2] != 0 || header[3] != 3) {
            return -1;
        }
        if (header[7] == 0) {
            record = receive(312);
        }
        return header[7];
    }

    std::uint32_t submit(unsigned endpoint, bool in, std::uint32_t length, const Bytes& setup = Bytes(8),
                         const Bytes& out = {}, std::uint8_t flags = 0) {
        Bytes message(48);
        message[3] = 1;
        put(message, 4, ++number_);
        message[15] = in ? 1 : 0;
        message[19] = static_cast<std::uint8_t>(endpoint);
        message[23] = flags;
        put(message, 24, length);
        std::copy(setup.begin(), setup.end(), message.begin() + 40);
        message.insert(message.end(), out.begin(), out.end());
        send(message);
        return number_;
    }
    std::uint32_t unlink(std::uint32_t unlinked) {
        Bytes message(48);
        message[3] = 2;
        put(message, 4, ++number_);
        put(message, 20, unlinked);
        send(message);
        return number_;
    }
    /// `in`: whether the answer brings its data along.
    Answer answer(bool in) {
        const Bytes header = receive(48);
        if (header.size() != 48) {
            return {};
        }
        Answer answer{
            get(header, 0), get(header, 4), static_cast<std::int32_t>(get(header, 20)), get(header, 24), {}};
        if (in && answer.length > 0) {
            answer.data = receive(answer.length);
        }
        return answer;
    }

    Answer control(unsigned requestType, unsigned request, unsigned value, unsigned index, unsigned length) {
        const bool in = (requestType & 0x80U) != 0;
        const auto byte = [](unsigned number) { return static_cast<std::uint8_t>(number & 0xFFU); };
        submit(0, in, in ? length : 0,
               {byte(requestType), byte(request), byte(value), byte(value >> 8U), byte(index),
                byte(index >> 8U), byte(length), byte(length >> 8U)});
        return answer(in);
    }
    Answer command(unsigned code, unsigned value = 1, unsigned index = 0, unsigned length = replyLength) {
        return control(code, pedalRequest, value, index, length);
    }

    Bytes record;  ///< the server's description of the pedal

  private:
    static void put(Bytes& message, std::size_t offset, std::uint32_t value) {
        const std::uint32_t swapped = htonl(value);
        std::memcpy(message.data() + offset, &swapped, sizeof swapped);
    }
    static std::uint32_t get(const Bytes& message, std::size_t offset) {
        std::uint32_t swapped = 0;
        std::memcpy(&swapped, message.data() + offset, sizeof swapped);
        return ntohl(swapped);
    }

    std::unique_ptr<Connection> stream_;
    std::uint32_t number_ = 0;
};

}  // namespace kzq::simulator::usbip
