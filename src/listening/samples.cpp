#include "listening/samples.h"

#include <cstring>

namespace kzq {

namespace {

constexpr std::size_t sampleBytes = 3;

template <class Sample>
void convertAll(ByteView audio, std::span<std::uint8_t> into) {
    for (auto* place = into.data(); audio.size() >= sampleBytes; audio = audio.subspan(sampleBytes)) {
        const auto high =
            std::uint32_t{audio[0]} << 8U | std::uint32_t{audio[1]} << 16U | std::uint32_t{audio[2]} << 24U;
        const auto sample =
            static_cast<Sample>(static_cast<std::int32_t>(high) >> (32U - 8U * sizeof(Sample)));
        std::memcpy(place, &sample, sizeof sample);
        place += sizeof sample;
    }
}

}  // namespace

void convertSamples(ByteView audio, std::span<std::uint8_t> into, SampleForm form) {
    if (form == SampleForm::int16) {
        convertAll<std::int16_t>(audio, into);
    } else {
        convertAll<std::int32_t>(audio, into);
    }
}

}  // namespace kzq
