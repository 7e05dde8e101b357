#include "device/simulator/usbip/usbip_wire.h"

#include <algorithm>
#include <cassert>

#include "platform/little_endian.h"

namespace kzq::simulator::usbip {

namespace {

// Offsets of the fields. Each name is followed by its width, so that a slip shows in the sums.
namespace operationfield {
constexpr std::size_t version = 0;
constexpr std::size_t code = version + 2;
constexpr std::size_t status = code + 2;
constexpr std::size_t end = status + 4;
}  // namespace operationfield
static_assert(operationfield::end == operationHeaderLength);

namespace devicefield {
constexpr std::size_t pathLength = 256;
constexpr std::size_t path = 0;
constexpr std::size_t busId = path + pathLength;
constexpr std::size_t bus = busId + busIdLength;
constexpr std::size_t device = bus + 4;
constexpr std::size_t speed = device + 4;
constexpr std::size_t vendor = speed + 4;
constexpr std::size_t product = vendor + 2;
constexpr std::size_t release = product + 2;
constexpr std::size_t deviceClass = release + 2;  // class, subclass and protocol: see the interface
constexpr std::size_t configurationValue = deviceClass + 3;
constexpr std::size_t configurations = configurationValue + 1;
constexpr std::size_t interfaces = configurations + 1;
constexpr std::size_t end = interfaces + 1;
}  // namespace devicefield
static_assert(devicefield::end == deviceRecordLength);

namespace urbfield {
constexpr std::size_t command = 0;
constexpr std::size_t number = command + 4;
constexpr std::size_t device = number + 4;
constexpr std::size_t direction = device + 4;
constexpr std::size_t endpoint = direction + 4;
constexpr std::size_t body = endpoint + 4;
// a submitted transfer
constexpr std::size_t flags = body;
constexpr std::size_t length = flags + 4;
constexpr std::size_t startFrame = length + 4;
constexpr std::size_t packets = startFrame + 4;
constexpr std::size_t interval = packets + 4;
constexpr std::size_t setup = interval + 4;
constexpr std::size_t end = setup + 8;
// a transfer to unlink
constexpr std::size_t unlinked = body;
// its result
constexpr std::size_t status = body;
constexpr std::size_t moved = status + 4;
}  // namespace urbfield
static_assert(urbfield::body == 20);
static_assert(urbfield::end == urbHeaderLength);

void storeText(std::span<std::uint8_t> field, std::string_view text) {
    assert(text.size() < field.size());
    std::ranges::copy(text, field.begin());
}

}  // namespace

std::uint16_t loadBig16(std::span<const std::uint8_t> bytes, std::size_t offset) {
    assert(holdsField(bytes.size(), offset, 2));
    return static_cast<std::uint16_t>(bytes[offset] << 8U | bytes[offset + 1]);
}

std::uint32_t loadBig32(std::span<const std::uint8_t> bytes, std::size_t offset) {
    return std::uint32_t{loadBig16(bytes, offset)} << 16U | loadBig16(bytes, offset + 2);
}

void storeBig16(std::span<std::uint8_t> bytes, std::size_t offset, std::uint16_t value) {
    assert(holdsField(bytes.size(), offset, 2));
    bytes[offset] = static_cast<std::uint8_t>(value >> 8U);
    bytes[offset + 1] = static_cast<std::uint8_t>(value & 0xFFU);
}

void storeBig32(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value) {
    storeBig16(bytes, offset, static_cast<std::uint16_t>(value >> 16U));
    storeBig16(bytes, offset + 2, static_cast<std::uint16_t>(value & 0xFFFFU));
}

OperationHeader decodeOperation(std::span<const std::uint8_t, operationHeaderLength> bytes) {
    return {loadBig16(bytes, operationfield::version), loadBig16(bytes, operationfield::code),
            static_cast<OperationStatus>(loadBig32(bytes, operationfield::status))};
}

std::array<std::uint8_t, operationHeaderLength> encode(const OperationHeader& header) {
    std::array<std::uint8_t, operationHeaderLength> bytes{};
    storeBig16(bytes, operationfield::version, header.version);
    storeBig16(bytes, operationfield::code, header.code);
    storeBig32(bytes, operationfield::status, static_cast<std::uint32_t>(header.status));
    return bytes;
}

std::array<std::uint8_t, deviceRecordLength> encode(const DeviceRecord& record) {
    std::array<std::uint8_t, deviceRecordLength> bytes{};
    const std::span all(bytes);
    storeText(all.subspan(devicefield::path, devicefield::pathLength), record.path);
    storeText(all.subspan(devicefield::busId, busIdLength), record.busId);
    storeBig32(bytes, devicefield::bus, record.bus);
    storeBig32(bytes, devicefield::device, record.device);
    storeBig32(bytes, devicefield::speed, record.speed);
    storeBig16(bytes, devicefield::vendor, record.vendor);
    storeBig16(bytes, devicefield::product, record.product);
    storeBig16(bytes, devicefield::release, record.release);
    bytes[devicefield::configurationValue] = record.configurationValue;
    bytes[devicefield::configurations] = record.configurations;
    bytes[devicefield::interfaces] = record.interfaces;
    return bytes;
}

UrbRequest decodeUrb(std::span<const std::uint8_t, urbHeaderLength> bytes) {
    UrbRequest request;
    request.command = static_cast<UrbCommand>(loadBig32(bytes, urbfield::command));
    request.number = loadBig32(bytes, urbfield::number);
    request.in = loadBig32(bytes, urbfield::direction) == 1;
    request.endpoint = loadBig32(bytes, urbfield::endpoint);
    if (request.command == UrbCommand::unlink) {
        request.unlinked = loadBig32(bytes, urbfield::unlinked);
        return request;
    }
    request.flags = loadBig32(bytes, urbfield::flags);
    request.length = loadBig32(bytes, urbfield::length);
    std::ranges::copy(bytes.subspan<urbfield::setup, 8>(), request.setup.begin());
    return request;
}

std::array<std::uint8_t, urbHeaderLength> encode(const UrbReply& reply) {
    std::array<std::uint8_t, urbHeaderLength> bytes{};
    storeBig32(bytes, urbfield::command, static_cast<std::uint32_t>(reply.command));
    storeBig32(bytes, urbfield::number, reply.number);
    storeBig32(bytes, urbfield::status, static_cast<std::uint32_t>(reply.status));
    storeBig32(bytes, urbfield::moved, reply.length);
    return bytes;
}

}  // namespace kzq::simulator::usbip
