#include <array>

#include "audio/source_facts.h"

namespace kzq {
namespace {

using BitRates = std::array<std::uint16_t, 15>;

/// The header of each frame of MPEG audio.
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

    /// In bytes, with the header; 0 if the header does not say (free format).
    std::uint64_t frameSize() const {
        constexpr std::array<std::uint32_t, 3> rates{44'100, 48'000, 32'000};
        const unsigned lower = isVersionOne() ? 0 : version() == 2 ? 1 : 2;
        const std::uint64_t rate = rates.at(field(10, 2)) >> lower;
        const std::uint64_t bitRate = bitRates().at(field(12, 4)) * std::uint64_t{1000};
        const std::uint64_t padding = field(9, 1);
        if (bitRate == 0) {
            return 0;
        }
        if (layer() == 3) {
            return (12 * bitRate / rate + padding) * 4;
        }
        return (isLayerThree() && !isVersionOne() ? 72 : 144) * bitRate / rate + padding;
    }

  private:
    unsigned field(unsigned lowest, unsigned width) const {
        return static_cast<unsigned>(bits_ >> lowest) & ((1U << width) - 1);
    }
    unsigned version() const { return field(19, 2); }
    unsigned layer() const { return field(17, 2); }  ///< 3 is layer I, 1 is layer III

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

/// Whether an ID3v1 or APE tag starts here, the only ones that the decoder allows after the last frame.
bool isTag(const FileBytes& file, std::uint64_t offset) {
    return file.text(offset, 3) == "TAG" || file.text(offset, 8) == "APETAGEX";
}

/// Follows the frames from header to header: true if they end neither at the file's end nor at a tag.
bool breaksOff(const FileBytes& file, std::uint64_t start) {
    std::uint64_t offset = start;
    while (offset < file.size()) {
        const FrameHead head(file.big(offset, 4).value_or(0));
        if (!head.isValid()) {
            return offset != start && !isTag(file, offset);
        }
        const std::uint64_t size = head.frameSize();
        if (size == 0) {
            return false;
        }
        offset += size;
    }
    return offset > file.size();
}

}  // namespace

SourceFacts factsOfMp3(const FileBytes& file, std::uint64_t start) {
    SourceFacts facts;
    facts.truncated = breaksOff(file, start);
    const FrameHead head(file.big(start, 4).value_or(0));
    // The tag is where the first frame's samples would be, after its side information.
    const std::uint64_t sideSize = head.isVersionOne() ? (head.isMono() ? 17 : 32) : (head.isMono() ? 9 : 17);
    const std::uint64_t tag = start + 4 + sideSize;
    const std::string name = file.text(tag, 4);
    if (!head.isLayerThree() || (name != "Xing" && name != "Info") ||
        (file.big(tag + 4, 4).value_or(0) & 1U) == 0) {
        return facts;
    }
    const std::uint64_t frameSize = head.isVersionOne() ? 1152 : 576;
    const std::uint64_t padding = file.big(tag + 141, 3).value_or(0);
    // Encoders count their own frames a little differently.
    const std::uint64_t unsure = (padding >> 12U) + (padding & 0xFFFU) + 2 * frameSize;
    const std::uint64_t count = file.big(tag + 8, 4).value_or(0) * frameSize;
    if (count > unsure) {
        facts.frames = count - unsure;
    }
    return facts;
}

}  // namespace kzq
