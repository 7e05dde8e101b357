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
/// Whether the file at `path` holds the same audio as `image`. Both are images of loops; reads piece by
/// piece.
bool holdsSameAudio(const std::filesystem::path& path, ByteView image);

}  // namespace kzq
