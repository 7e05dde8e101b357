#pragma once

#include "audio/source_facts.h"

namespace kzq {

/// What a "fmt " chunk says.
struct WaveFormat {
    std::uint64_t tag = 0;
    std::uint64_t channels = 0;
    std::uint64_t rate = 0;
    std::uint64_t blockAlign = 0;
    std::uint64_t validBits = 0;

    /// A frame is a block: PCM, floating point, A-law and µ-law.
    bool isPlain() const { return tag == 1 || tag == 3 || tag == 6 || tag == 7; }
};

/// The format whose description starts at `body`.
WaveFormat waveFormatAt(const FileBytes& file, std::uint64_t body);

/// The codec to decode it with, if the decoder's own choice would be wrong.
std::string codecFor(const WaveFormat& format);

/// What the decoder will call it: samples of whole bytes, on one or two channels.
std::optional<StreamFacts> streamOf(const WaveFormat& format);

/// Notes how many frames there are in `size` bytes of samples, of which `there` are in the file.
void takeCounts(SourceFacts& facts, const WaveFormat& format, std::uint64_t size, std::uint64_t there);

}  // namespace kzq
