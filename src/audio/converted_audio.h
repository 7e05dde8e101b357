#pragma once

#include <filesystem>

#include "audio/wave.h"
#include "platform/result.h"

namespace kzq {

/// The samples of an audio file in the pedal's format, converted if need be by way of this run's temporary
/// folder. Failures are a Conversion's, or noTemporaryFolder. Blocks; any thread.
Result<Bytes> convertedAudio(const std::filesystem::path& source);

}  // namespace kzq
