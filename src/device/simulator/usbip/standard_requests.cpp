#include "device/simulator/usbip/standard_requests.h"

#include "device/simulator/usbip/descriptors.h"
#include "device/wire.h"

namespace kzq::simulator::usbip {

namespace {

// The request type combines recipient and type. The pedal's command codes all have the reserved type.
constexpr unsigned typeMask = 0x60;
constexpr unsigned standardType = 0x00;
constexpr unsigned reservedType = 0x60;
constexpr unsigned recipientMask = 0x1F;
constexpr unsigned toDevice = 0;
constexpr unsigned toInterface = 1;
constexpr unsigned toEndpoint = 2;

constexpr std::uint8_t getStatus = 0;
constexpr std::uint8_t clearFeature = 1;
constexpr std::uint8_t setFeature = 3;
constexpr std::uint8_t setAddress = 5;
constexpr std::uint8_t getDescriptor = 6;
constexpr std::uint8_t getConfiguration = 8;
constexpr std::uint8_t setConfiguration = 9;
constexpr std::uint8_t getInterface = 10;
constexpr std::uint8_t setInterface = 11;

std::optional<Bytes> descriptor(unsigned type, unsigned index) {
    if (index != 0) {
        return std::nullopt;
    }
    if (type == deviceDescriptorType) {
        return Bytes(deviceDescriptor().begin(), deviceDescriptor().end());
    }
    if (type == configurationDescriptorType) {
        return Bytes(configurationDescriptor().begin(), configurationDescriptor().end());
    }
    return std::nullopt;
}

}  // namespace

bool StandardRequests::concern(const SetupPacket& setup) {
    return (setup.requestType & typeMask) != reservedType;
}

bool StandardRequests::restarts(const SetupPacket& setup) {
    return setup.requestType == toDevice && setup.request == setConfiguration;
}

std::optional<Bytes> StandardRequests::answer(const SetupPacket& setup) {
    if ((setup.requestType & typeMask) != standardType) {
        return std::nullopt;
    }
    std::optional<Bytes> reply;
    switch (setup.requestType & recipientMask) {
        case toDevice:
            reply = answerDevice(setup);
            break;
        case toInterface:
            reply = answerInterface(setup);
            break;
        case toEndpoint:
            reply = answerEndpoint(setup);
            break;
        default:
            break;
    }
    if (reply && reply->size() > setup.length) {
        reply->resize(setup.length);
    }
    return reply;
}

std::optional<Bytes> StandardRequests::answerDevice(const SetupPacket& setup) {
    constexpr std::uint8_t isSelfPowered = 1;
    switch (setup.request) {
        case getStatus:
            return Bytes{isSelfPowered, 0};
        case getDescriptor:
            return descriptor(setup.value >> 8U, setup.value & 0xFFU);
        case getConfiguration:
            return Bytes{configuration_};
        case setConfiguration:
            if (setup.value > pedalConfiguration) {
                return std::nullopt;
            }
            configuration_ = static_cast<std::uint8_t>(setup.value);
            return Bytes{};
        case setAddress:
        case clearFeature:
        case setFeature:
            return Bytes{};
        default:
            return std::nullopt;
    }
}

std::optional<Bytes> StandardRequests::answerInterface(const SetupPacket& setup) {
    if (setup.index != pedalInterface) {
        return std::nullopt;
    }
    switch (setup.request) {
        case getStatus:
            return Bytes{0, 0};
        case getInterface:
            return Bytes{0};
        case setInterface:
            return setup.value == 0 ? std::optional(Bytes{}) : std::nullopt;
        default:
            return std::nullopt;
    }
}

std::optional<Bytes> StandardRequests::answerEndpoint(const SetupPacket& setup) {
    if (setup.index != 0 && setup.index != pedalBulkIn && setup.index != pedalBulkOut) {
        return std::nullopt;
    }
    // The pedal stalls single transfers and is never halted for longer.
    switch (setup.request) {
        case getStatus:
            return Bytes{0, 0};
        case clearFeature:
            return Bytes{};
        default:
            return std::nullopt;
    }
}

}  // namespace kzq::simulator::usbip
