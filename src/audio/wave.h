#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/bytes.h"

namespace kzq {

/// Where something is in a buffer. A length of 0 means that it was not found.
struct ByteRange {
    static constexpr std::uint64_t notFound = 0x7FFFFFFFFFFFFFFF;

    std::uint64_t location = notFound;
    std::uint64_t length = 0;

    bool operator==(const ByteRange&) const = default;
};

/// The one format the pedal keeps: linear PCM, signed 24-bit little-endian, 44,100 Hz.
inline constexpr std::uint32_t waveBitsPerSample = 24;
/// Bytes before the samples in every file that `wave` makes.
inline constexpr std::size_t waveHeaderSize = 44;

// RIFF/WAVE on byte buffers. All functions read in place, keep nothing and may run on any thread.

/// The 12-byte RIFF/WAVE preamble at the start of `data`. Strict: the RIFF size must account for every byte,
/// so data with trailing bytes or a stale size is not a WAVE.
ByteRange rangeOfWaveChunk(ByteView data);

/// The sub-chunk at `offset`, including its 8-byte header. The next one starts exactly at location + length:
/// no pad byte is skipped after an odd size.
ByteRange rangeOfSubchunkAtOffset(ByteView data, std::uint64_t offset);

/// Whether `data` is a RIFF/WAVE in which both a "fmt " and a "data" sub-chunk are reached, in either order,
/// before the first malformed sub-chunk.
bool isWave(ByteView data);

/// Whether `data` is a WAVE in exactly the pedal's format with `channels` channels and a 16-byte format body.
bool isPerfectWave(ByteView data, std::uint32_t channels);

/// The canonical header in front of `sampleBytes` bytes of samples. `channels` is cut to the 16 bits of its
/// field, and the RIFF size to its 32 bits.
std::array<std::uint8_t, waveHeaderSize> waveHeader(std::uint32_t sampleBytes, std::uint32_t channels);

/// A WAV file image: the canonical 44-byte header, then `samples` unchanged. Nothing if there are more than
/// 4,294,967,258 bytes of them, which a RIFF size cannot hold, or no memory for the image. `channels`
/// is cut to the 16 bits of its field.
std::optional<Bytes> wave(ByteView samples, std::uint32_t channels);

/// The same in place: `file` has its samples behind `waveHeaderSize` bytes, into which the header goes. False
/// if there are too many of them.
bool addWaveHeader(Bytes& file, std::uint32_t channels);

/// The body of the first "data" sub-chunk. Data that is not a WAVE is taken for samples and returned whole,
/// as is a WAVE of less than 44 bytes; a malformed WAVE gives nothing. Throws only if out of memory.
std::optional<Bytes> lpcm(ByteView data);

/// The same, in place: part of `data`.
std::optional<ByteView> lpcmIn(ByteView data);

}  // namespace kzq
