#include "device/recorder/call_words.h"

namespace kzq::recorder {

namespace {

constexpr std::string_view digits = "0123456789abcdef";
constexpr unsigned bitsOfDigit = 4;
constexpr unsigned digitMask = 0xF;

std::string hexNumber(std::uint64_t number, unsigned width) {
    std::string text(width, '0');
    for (; width > 0; number >>= bitsOfDigit) {
        text[--width] = digits[number & digitMask];
    }
    return text;
}

std::string byteText(std::uint8_t number) {
    return hexNumber(number, 2);
}

std::string wordText(std::uint16_t number) {
    return hexNumber(number, 4);
}

/// FNV-1a.
std::uint64_t checksum(std::span<const std::uint8_t> bytes) {
    constexpr std::uint64_t basis = 0xCBF29CE484222325;
    constexpr std::uint64_t prime = 0x100000001B3;
    std::uint64_t sum = basis;
    for (const std::uint8_t byte : bytes) {
        sum = (sum ^ byte) * prime;
    }
    return sum;
}

std::string verbOf(std::string_view verb, unsigned handle) {
    return std::string(verb) + " " + std::to_string(handle);
}

}  // namespace

std::string hexText(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) {
        return "-";
    }
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> bitsOfDigit];
        text += digits[byte & digitMask];
    }
    return text;
}

namespace words {

std::string initialize() {
    return "initialize";
}

std::string registerHotplug(HotplugEvent event, const HotplugFilter& filter) {
    return std::string("register ") + (event == HotplugEvent::arrived ? "arrived " : "left ") +
           wordText(filter.vendor) + " " + wordText(filter.product) + " " +
           std::to_string(filter.deviceClass) + (filter.enumerate ? " 1" : " 0");
}

std::string open(unsigned device) {
    return verbOf("open", device);
}

std::string find(std::uint16_t vendor, std::uint16_t product) {
    return "find " + wordText(vendor) + " " + wordText(product);
}

std::string onInterface(std::string_view verb, unsigned handle, int interface) {
    return verbOf(verb, handle) + " " + std::to_string(interface);
}

std::string control(unsigned handle, std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                    std::uint16_t index, std::size_t length) {
    return verbOf("control", handle) + " " + byteText(requestType) + " " + byteText(request) + " " +
           wordText(value) + " " + wordText(index) + " " + std::to_string(length);
}

std::string bulkIn(unsigned handle, std::uint8_t endpoint, std::size_t length) {
    return verbOf("in", handle) + " " + byteText(endpoint) + " " + std::to_string(length);
}

std::string bulkOut(unsigned handle, std::uint8_t endpoint, std::span<const std::uint8_t> data) {
    constexpr std::size_t longestInFull = 64;
    constexpr unsigned checksumWidth = 16;
    return verbOf("out", handle) + " " + byteText(endpoint) + " " + std::to_string(data.size()) + " " +
           (data.size() <= longestInFull ? hexText(data) : "fnv:" + hexNumber(checksum(data), checksumWidth));
}

std::string reset(unsigned handle) {
    return verbOf("reset", handle);
}

std::string close(unsigned handle) {
    return verbOf("close", handle);
}

}  // namespace words

}  // namespace kzq::recorder
