#pragma once

#include <array>
#include <cstdint>

namespace kzq {

/// The header of each frame of MPEG audio: its first 4 bytes, big-endian.
class FrameHead {
  public:
    explicit FrameHead(std::uint64_t bits) : bits_(bits) {}

    bool isValid() const {
        return field(21, 11) == 0x7FF && version() != 1 && layer() != 0 && field(12, 4) != 15 &&
               field(10, 2) != 3;
    }
    bool isVersionOne() const { return version() == 3; }
    bool isLayerThree() const { return layer() == 1; }
    bool isMono() const { return field(6, 2) == 3; }

    /// Whether both can be frames of one stream: of the same version, layer and rate.
    bool isLike(const FrameHead& other) const {
        constexpr std::uint64_t kind = 0xFFFE0C00;
        return isValid() && (bits_ & kind) == (other.bits_ & kind);
    }
    std::uint64_t rate() const {
        constexpr std::array<std::uint32_t, 3> rates{44'100, 48'000, 32'000};
        return rates.at(field(10, 2)) >> (isVersionOne() ? 0U : version() == 2 ? 1U : 2U);
    }
    /// Frames of sound.
    std::uint64_t samples() const {
        return layer() == 3 ? 384 : isLayerThree() && !isVersionOne() ? 576 : 1152;
    }
    /// In bytes, with the header; 0 if the header does not say (free format).
    std::uint64_t frameSize() const {
        const std::uint64_t bitRate = bitRates().at(field(12, 4)) * std::uint64_t{1000};
        const std::uint64_t padding = field(9, 1);
        if (bitRate == 0) {
            return 0;
        }
        if (layer() == 3) {
            return (12 * bitRate / rate() + padding) * 4;
        }
        return (isLayerThree() && !isVersionOne() ? 72 : 144) * bitRate / rate() + padding;
    }

  private:
    unsigned field(unsigned lowest, unsigned width) const {
        return static_cast<unsigned>(bits_ >> lowest) & ((1U << width) - 1);
    }
    unsigned version() const { return field(19, 2); }
    unsigned layer() const { return field(17, 2); }  ///< 3 is layer I, 1 is layer III

    using BitRates = std::array<std::uint16_t, 15>;
    /// In kbit/s.
    const BitRates& bitRates() const {
        static constexpr BitRates one1{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448};
        static constexpr BitRates one2{0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
        static constexpr BitRates one3{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
        static constexpr BitRates two1{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256};
        static constexpr BitRates two23{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
        if (!isVersionOne()) {
            return layer() == 3 ? two1 : two23;
        }
        return layer() == 3 ? one1 : isLayerThree() ? one3 : one2;
    }

    std::uint64_t bits_;
};

}  // namespace kzq
