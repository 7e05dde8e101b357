#pragma once

#include <array>
#include <cstdint>

namespace kzq::simulator::usbip {

inline constexpr std::uint16_t pedalRelease = 0x0100;
inline constexpr std::uint8_t pedalConfiguration = 1;
inline constexpr std::uint8_t vendorClass = 0xFF;

inline constexpr std::uint8_t deviceDescriptorType = 1;
inline constexpr std::uint8_t configurationDescriptorType = 2;

inline constexpr std::size_t deviceDescriptorLength = 18;
inline constexpr std::size_t configurationDescriptorLength = 32;

/// The pedal as a high-speed device without strings.
const std::array<std::uint8_t, deviceDescriptorLength>& deviceDescriptor();
/// Its one configuration: a vendor-class interface 0 with the two bulk endpoints.
const std::array<std::uint8_t, configurationDescriptorLength>& configurationDescriptor();

}  // namespace kzq::simulator::usbip
