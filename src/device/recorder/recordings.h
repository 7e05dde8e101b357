#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "device/recorder/recording.h"
#include "device/recorder/recording_file.h"
#include "device/recorder/session_recorder.h"

namespace kzq::recorder {

// Recordings as the programs use them: by the names of their files.

/// Begins one in a new file, with a note of the program and the kernel. `executor` outlives it.
Result<std::shared_ptr<SessionRecorder>> begin(Executor& executor, const std::filesystem::path& file,
                                               const std::string& program, RecordingFile::Ended ended);

/// badRecording: `where` is the file, `words` what is wrong with which line.
Result<Recording> read(const std::filesystem::path& file);

/// Makes a capture for packet analysers of it, a new file; see writePcapng.
Result<void> capture(const std::filesystem::path& recording, const std::filesystem::path& capture,
                     bool audio);

}  // namespace kzq::recorder
