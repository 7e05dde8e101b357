#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "audio/wave.h"

namespace kzq {

/// Whether `image` is exactly what `wave` makes of stereo audio: a header of 44 bytes, then whole frames, at
/// least one.
bool isLoopFile(ByteView image);
/// The audio of such an image.
ByteView audioOf(ByteView image);
/// Its frames.
std::uint64_t framesOf(ByteView image);
/// The SHA-256 of the audio, in lower-case hexadecimal digits.
std::string audioDigest(ByteView image);
/// The same of a file that is such an image, which is read piece by piece; empty if it cannot be read.
std::string audioDigest(const std::filesystem::path& file);

}  // namespace kzq
