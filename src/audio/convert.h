#pragma once

#include <optional>
#include <string>

namespace kzq {

/// Audio files for the pedal.
class Wave {
  public:
    /// Converts the file at `path` to a fresh WAV file in this run's temporary folder and returns its path;
    /// the file belongs to the caller. Nothing on failure, with nothing left behind; the log says why. A path
    /// without a folder or an extension is refused; which extension does not matter. Blocks; any thread;
    /// several calls may run at once.
    static std::optional<std::string> convertAudioFile(const std::string& path);
};

}  // namespace kzq
