#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audio/level.h"
#include "audio/source_facts.h"
#include "loops/facts.h"

namespace kzq {

/// One more than the pedal holds, so that the count of frames shows that a source does not fit.
inline constexpr std::uint64_t mostConvertedFrames = capacityFrames + 1;

/// How a source is decoded.
struct DecodeOrder {
    SampleKind samples = SampleKind::f64;
    bool strict = true;     ///< end at the first fault
    bool clean = false;     ///< silence what is no number, which would spread in the resampler
    bool digest = false;    ///< write the MD5 of the source's samples to standard error, too
    bool describe = false;  ///< write what `probeArguments` ask for to standard error, too
};

/// Arguments for ffmpeg to describe the first audio stream in descriptor `childSource` without decoding it.
std::vector<std::string> probeArguments(const SourceFacts& facts);

/// Reads that description, which may have lines before and after it; nothing if it is not valid.
std::optional<StreamFacts> parseProbe(std::string_view text);
/// The MD5 in what the decoder wrote to standard error; empty if there is none.
std::string parseDigest(const std::string& complaint);

/// Whether a stream of this codec is converted. Some codecs are only for the tool, in formats of their own.
bool isAcceptedCodec(const SourceFacts& facts, std::string_view codec);

/// The plainest samples that hold all that the stream has.
SampleKind samplesFor(const StreamFacts& stream);

/// The frames of the audio at its own rate, if its headers say which they are.
struct FrameSpan {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
};
std::optional<FrameSpan> framesOfSound(const SourceFacts& facts, std::uint64_t rate);

/// Arguments for ffmpeg to write the audio in descriptor `childSource` to its standard output: two channels
/// at the pedal's rate, at most `mostConvertedFrames` frames.
std::vector<std::string> decodeArguments(const SourceFacts& facts, const StreamFacts& stream,
                                         const DecodeOrder& order);

}  // namespace kzq
