#include "device/simulator/usbip/descriptors.h"

#include "device/wire.h"

namespace kzq::simulator::usbip {

namespace {

constexpr std::uint8_t low(unsigned number) {
    return static_cast<std::uint8_t>(number & 0xFFU);
}

constexpr std::uint8_t high(unsigned number) {
    return static_cast<std::uint8_t>(number >> 8U);
}

constexpr std::uint8_t interfaceType = 4;
constexpr std::uint8_t endpointType = 5;
constexpr std::uint8_t bulkTransfers = 2;
constexpr std::uint8_t selfPowered = 0xC0;
constexpr unsigned bulkPacket = 512;
constexpr unsigned usbVersion = 0x0200;
constexpr std::uint8_t controlPacket = 64;

// clang-format off
constexpr std::array<std::uint8_t, deviceDescriptorLength> device{
    deviceDescriptorLength, deviceDescriptorType, low(usbVersion), high(usbVersion),
    0, 0, 0,  // class, subclass, protocol: see the interface
    controlPacket, low(pedalVendor), high(pedalVendor), low(pedalProduct), high(pedalProduct),
    low(pedalRelease), high(pedalRelease),
    0, 0, 0,  // no strings
    1};

constexpr std::array<std::uint8_t, configurationDescriptorLength> configuration{
    9, configurationDescriptorType, configurationDescriptorLength, 0, 1, pedalConfiguration, 0, selfPowered, 0,
    9, interfaceType, pedalInterface, 0, 2, vendorClass, 0, 0, 0,
    7, endpointType, pedalBulkIn, bulkTransfers, low(bulkPacket), high(bulkPacket), 0,
    7, endpointType, pedalBulkOut, bulkTransfers, low(bulkPacket), high(bulkPacket), 0};
// clang-format on
static_assert(9 + 9 + 7 + 7 == configurationDescriptorLength);

}  // namespace

const std::array<std::uint8_t, deviceDescriptorLength>& deviceDescriptor() {
    return device;
}

const std::array<std::uint8_t, configurationDescriptorLength>& configurationDescriptor() {
    return configuration;
}

}  // namespace kzq::simulator::usbip
