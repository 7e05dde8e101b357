#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kzq::simulator::usbip {

// The messages of USB/IP, version 1.1.1. All numbers are big-endian, except inside `setup`, which is the
// setup packet as it goes over a USB wire.

inline constexpr std::uint16_t protocolVersion = 0x0111;

namespace operation {
inline constexpr std::uint16_t importRequest = 0x8003;
inline constexpr std::uint16_t importReply = 0x0003;
inline constexpr std::uint16_t listRequest = 0x8005;
inline constexpr std::uint16_t listReply = 0x0005;
}  // namespace operation

/// Result of an operation.
enum class OperationStatus : std::uint32_t { ok = 0, notAvailable = 1, busy = 2, error = 3, noDevice = 4 };

inline constexpr std::size_t operationHeaderLength = 8;
inline constexpr std::size_t busIdLength = 32;
inline constexpr std::size_t deviceRecordLength = 312;
inline constexpr std::size_t interfaceRecordLength = 4;
inline constexpr std::size_t urbHeaderLength = 48;

struct OperationHeader {
    std::uint16_t version = protocolVersion;
    std::uint16_t code = 0;
    OperationStatus status = OperationStatus::ok;
};

/// The device as the server lists it.
struct DeviceRecord {
    std::string_view path;   ///< up to 255 characters
    std::string_view busId;  ///< up to 31 characters
    std::uint32_t bus = 0;
    std::uint32_t device = 0;
    std::uint32_t speed = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t release = 0;
    std::uint8_t configurationValue = 0;
    std::uint8_t configurations = 0;
    std::uint8_t interfaces = 0;
};

enum class UrbCommand : std::uint32_t { submit = 1, unlink = 2, submitReply = 3, unlinkReply = 4 };

/// A request of the computer: a transfer, or (unlink) to cancel the one with the number `unlinked`.
struct UrbRequest {
    UrbCommand command = UrbCommand::submit;
    std::uint32_t number = 0;
    bool in = false;
    std::uint32_t endpoint = 0;  ///< without the direction bit
    std::uint32_t flags = 0;
    std::uint32_t length = 0;
    std::array<std::uint8_t, 8> setup{};
    std::uint32_t unlinked = 0;
};

/// Short reads are errors.
inline constexpr std::uint32_t shortIsError = 0x0001;

/// Statuses are the negative error numbers of Linux.
namespace urbstatus {
inline constexpr std::int32_t ok = 0;
inline constexpr std::int32_t stalled = -32;
inline constexpr std::int32_t overflow = -75;
inline constexpr std::int32_t unlinked = -104;
inline constexpr std::int32_t cameShort = -121;
}  // namespace urbstatus

struct UrbReply {
    UrbCommand command = UrbCommand::submitReply;
    std::uint32_t number = 0;
    std::int32_t status = urbstatus::ok;
    std::uint32_t length = 0;  ///< bytes transferred; 0 in the reply to an unlink
};

OperationHeader decodeOperation(std::span<const std::uint8_t, operationHeaderLength> bytes);
std::array<std::uint8_t, operationHeaderLength> encode(const OperationHeader& header);
std::array<std::uint8_t, deviceRecordLength> encode(const DeviceRecord& record);
UrbRequest decodeUrb(std::span<const std::uint8_t, urbHeaderLength> bytes);
std::array<std::uint8_t, urbHeaderLength> encode(const UrbReply& reply);

std::uint16_t loadBig16(std::span<const std::uint8_t> bytes, std::size_t offset);
std::uint32_t loadBig32(std::span<const std::uint8_t> bytes, std::size_t offset);
void storeBig16(std::span<std::uint8_t> bytes, std::size_t offset, std::uint16_t value);
void storeBig32(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value);

}  // namespace kzq::simulator::usbip
