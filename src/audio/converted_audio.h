#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "audio/wave.h"

namespace kzq {

/// The samples of an audio file in the pedal's format, converted if need be by way of this run's temporary
/// folder. Nothing on failure, with a sentence in `error`. Blocks; any thread.
std::optional<Bytes> convertedAudio(const std::filesystem::path& source, std::string& error);

}  // namespace kzq
