#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "audio/wave.h"

namespace kzq {

// A loop on the disk is exactly what `wave` makes of stereo audio: a header of 44 bytes, then whole frames,
// at least one. Files are read piece by piece: a long loop fills 381 MB. Any thread.

/// The audio of such an image.
ByteView audioOf(ByteView image);
/// Its frames.
std::uint64_t framesOf(ByteView image);
/// The SHA-256 of the audio, in lower-case hexadecimal digits.
std::string audioDigest(ByteView image);
/// The same of a file that is such an image, which is read piece by piece; empty if it cannot be read.
std::string audioDigest(const std::filesystem::path& file);

/// Whether the file at `path` is such a loop, with so many frames and that digest.
bool isLoopFile(const std::filesystem::path& path, std::uint64_t frames, const std::string& digest);
/// Whether the file at `path` is `image`, bit for bit; a symbolic link to one is not.
bool isFileOf(const std::filesystem::path& path, ByteView image);

}  // namespace kzq
