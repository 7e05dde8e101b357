#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audio/source_facts.h"

namespace kzq {

/// What the decoder found in a source.
struct StreamFacts {
    std::string codec;
    std::uint64_t rate = 0;
    /// 1, 2, or 3 for more.
    unsigned channels = 0;
    bool namedChannels = true;  ///< false if it is unknown which channel is which
};

/// Arguments for ffmpeg to describe the first audio stream in descriptor `childSource` without decoding it.
std::vector<std::string> probeArguments();

/// Reads that description; nothing if it is not valid.
std::optional<StreamFacts> parseProbe(std::string_view text);

bool isAcceptedCodec(std::string_view codec);

/// The frames of the audio at its own rate, if its headers say which they are.
struct FrameSpan {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
};
std::optional<FrameSpan> framesOfSound(const SourceFacts& facts, std::uint64_t rate);

/// Arguments for ffmpeg to write the audio in descriptor `childSource` to its standard output as the pedal's
/// samples, at most `mostFrames` frames.
std::vector<std::string> decodeArguments(const SourceFacts& facts, const StreamFacts& stream,
                                         std::uint64_t mostFrames);

}  // namespace kzq
