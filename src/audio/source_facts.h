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

/// The bytes from `start` up to `end`.
struct ByteSpan {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
};

/// The MD5 of a source's samples, as its header has it.
struct SampleDigest {
    std::string md5;    ///< in lower-case hexadecimal digits
    unsigned bits = 0;  ///< a sample's size, 8, 16 or 24
};

/// An audio stream.
struct StreamFacts {
    std::string codec;  ///< by the name of its format
    std::uint64_t rate = 0;
    /// 1, 2, or 3 for more.
    unsigned channels = 0;
    bool namedChannels = true;  ///< false if it is unknown which channel is which
};

/// What the headers of a file say that the decoder does not report, or gets wrong. Frames are at the source's
/// own rate.
struct SourceFacts {
    bool recognised = true;  ///< it starts like an audio file
    /// It ends before its headers say: then `present` is how many frames there are, if that shows.
    bool truncated = false;
    bool openEnded = false;  ///< a WAV whose writer could not seek back to store the length
    std::string kind;        ///< its name, if only the tool takes it
    std::string
        unsupported;         ///< the kind of audio, if the decoder cannot read it or would turn it into noise
    std::string codec;       ///< the decoder to use instead of the default one
    std::uint64_t rate = 0;  ///< frames in a second, where the headers have them as plainly as that; else 0
    /// How many frames must come out.
    std::optional<std::uint64_t> frames;
    /// So many fewer are no sign of damage; some encoders count a frame that is not audio.
    std::uint64_t slack = 0;
    std::optional<std::uint64_t> present;
    std::optional<SoundSpan> sound;
    /// The count of frames shows any loss, so the decoder may stumble over what is no audio.
    bool countDecides = false;
    /// `frames` was stored by the encoder, and not counted by us.
    bool countStored = true;
    /// Frames in parts of the stream that cannot be read; only if there is no count to show it.
    std::uint64_t unreadable = 0;
    std::optional<SampleDigest> digest;
    /// What the headers say that the stream is, where that is plain; the decoder may still see another.
    std::optional<StreamFacts> stream;
    /// What the decoder is shown of the file: no tags and zeros before and behind the audio. Nothing: all of
    /// it.
    std::optional<ByteSpan> audio;
};

SourceFacts factsOf(const FileBytes& file);

// One format each; `file` has the format's signature.

SourceFacts factsOfWave(const FileBytes& file);
SourceFacts factsOfAiff(const FileBytes& file);
SourceFacts factsOfMp4(const FileBytes& file);
SourceFacts factsOfOgg(const FileBytes& file);
SourceFacts factsOfWavPack(const FileBytes& file);
SourceFacts factsOfWave64(const FileBytes& file);
SourceFacts factsOfCaf(const FileBytes& file);
/// FLAC and MP3; `start` is where the audio starts, behind tags.
SourceFacts factsOfFlac(const FileBytes& file, std::uint64_t start);
SourceFacts factsOfMp3(const FileBytes& file, std::uint64_t start);

}  // namespace kzq
