#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "listening/audio_output.h"
#include "platform/bytes.h"

namespace kzq {

/// Bytes of a frame as the device takes it.
constexpr std::size_t frameBytesOf(SampleForm form) {
    return form == SampleForm::int16 ? 2 * sizeof(std::int16_t) : 2 * sizeof(std::int32_t);
}

/// The pedal's frames as the device takes them, exactly, or for 16 bits without the lower 8, so that nothing
/// clips. `into` has room for as many frames.
void convertSamples(ByteView audio, std::span<std::uint8_t> into, SampleForm form);

}  // namespace kzq
