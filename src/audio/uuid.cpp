#include "audio/uuid.h"

#include <array>
#include <cstdint>
#include <random>
#include <string_view>

namespace kzq {

std::string freshUuid() {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::random_device noise;
    std::array<std::uint8_t, 16> bytes{};
    for (auto& byte : bytes) {
        byte = static_cast<std::uint8_t>(noise() & 0xFFU);
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0FU) | 0x40U);  // version 4: random
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3FU) | 0x80U);  // the usual variant
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text += '-';
        }
        text += digits[bytes[i] >> 4U];
        text += digits[bytes[i] & 15U];
    }
    return text;
}

}  // namespace kzq
