#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "audio/file_bytes.h"

namespace kzq {

/// The part of a coded stream that is audio; the rest before and after it is codec padding. In units of
/// 1/`timescale` seconds.
struct SoundSpan {
    std::uint64_t start = 0;
    std::uint64_t length = 0;
    std::uint64_t timescale = 0;

    bool operator==(const SoundSpan&) const = default;
};

/// What the headers of a file say that the decoder does not report, or gets wrong.
struct SourceFacts {
    bool recognised = true;   ///< it starts like an audio file
    bool truncated = false;   ///< it ends before its headers say
    bool openEnded = false;   ///< a WAV whose writer could not seek back to store the length
    std::string unsupported;  ///< the kind of audio, if the decoder would turn it into noise
    std::string codec;        ///< the decoder to use instead of the default one
    /// How many frames must come out at the source's own rate, at least; exact but for MP3.
    std::optional<std::uint64_t> frames;
    std::optional<SoundSpan> sound;
};

SourceFacts factsOf(const FileBytes& file);

// One format each; `file` has the format's signature.

SourceFacts factsOfWave(const FileBytes& file);
SourceFacts factsOfAiff(const FileBytes& file);
SourceFacts factsOfMp4(const FileBytes& file);
/// FLAC and MP3; `start` is where the audio starts, after an ID3 tag.
SourceFacts factsOfFlac(const FileBytes& file, std::uint64_t start);
SourceFacts factsOfMp3(const FileBytes& file, std::uint64_t start);

}  // namespace kzq
