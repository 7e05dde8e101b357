#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "device/usb_port.h"

namespace kzq::recorder {

/// A call to a port as a recording has it: its name and its arguments. A replay compares these words.
/// `handle` is the number of the call that opened the device.
namespace words {
std::string initialize();
std::string registerHotplug(HotplugEvent event, const HotplugFilter& filter);
std::string open(unsigned device);
std::string find(std::uint16_t vendor, std::uint16_t product);
/// "driver", "detach", "claim" or "release".
std::string onInterface(std::string_view verb, unsigned handle, int interface);
std::string control(unsigned handle, std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                    std::uint16_t index, std::size_t length);
std::string bulkIn(unsigned handle, std::uint8_t endpoint, std::size_t length);
/// Short data in full, longer data as a checksum: a replay only has to recognise it.
std::string bulkOut(unsigned handle, std::uint8_t endpoint, std::span<const std::uint8_t> data);
std::string reset(unsigned handle);
std::string close(unsigned handle);
}  // namespace words

/// Two lower-case digits a byte; "-" for none.
std::string hexText(std::span<const std::uint8_t> bytes);

}  // namespace kzq::recorder
