#pragma once

#include <filesystem>
#include <optional>

#include "loops/frames.h"
#include "platform/result.h"

namespace kzq {

/// How long an audio file is at the pedal's rate, going by its headers alone; nothing if they do not say. A
/// failure means that converting it is sure to fail: notAFile, unreadable, noSound, notAudio or unsupported.
/// What is merely damaged is none, as something can be made of it. Reads no more than FileBytes lets it.
/// Blocks; any thread.
Result<std::optional<Frames>> promisedLength(const std::filesystem::path& file);

}  // namespace kzq
