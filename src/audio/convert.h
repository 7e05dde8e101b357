#pragma once

#include <optional>
#include <string>

#include "platform/result.h"

namespace kzq {

/// Converts the file at `path` to a fresh WAV file in this run's temporary folder and returns its path; the
/// file belongs to the caller. Failures are a Conversion's, or noTemporaryFolder, and nothing is left behind.
/// A path without a folder or an extension is refused; which extension does not matter. Blocks; any thread;
/// several calls may run at once, of which as many decode as there are cores.
Result<std::string> convertedFile(const std::string& path);
/// The same; of a source that is shortened, what there is of it.
Result<std::string> salvagedFile(const std::string& path);

/// Audio files for the pedal.
class Wave {
  public:
    /// The same; nothing on failure. The log says why.
    static std::optional<std::string> convertAudioFile(const std::string& path);
};

}  // namespace kzq
