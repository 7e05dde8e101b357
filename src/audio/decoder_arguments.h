#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audio/source_facts.h"

namespace kzq {

/// What the decoder finds in a source.
struct StreamFacts {
    std::string codec;
    std::uint64_t rate = 0;
    /// 1, 2, or 3 for more.
    unsigned channels = 0;
    bool namedChannels = true;  ///< false when nobody says which channel is which
};

/// The arguments with which ffmpeg describes the first sound in descriptor `childSource`, decoding nothing.
std::vector<std::string> probeArguments();

/// Reads that description; nothing when it is none.
std::optional<StreamFacts> parseProbe(std::string_view text);

bool isAcceptedCodec(std::string_view codec);

/// The frames of the sound at its own rate, where its headers tell which they are.
struct FrameSpan {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
};
std::optional<FrameSpan> framesOfSound(const SourceFacts& facts, std::uint64_t rate);

/// The arguments with which ffmpeg writes the sound in descriptor `childSource` to its standard output, as
/// the pedal's samples, `mostFrames` of them at most.
std::vector<std::string> decodeArguments(const SourceFacts& facts, const StreamFacts& stream,
                                         std::uint64_t mostFrames);

}  // namespace kzq
