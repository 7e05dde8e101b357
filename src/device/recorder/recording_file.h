#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/result.h"

namespace kzq::recorder {

/// The file of a recording. Each line is in it when `write` returns, so none is lost if the program ends
/// abruptly; a full disk ends the recording and nothing else. Any thread.
class RecordingFile {
  public:
    /// Called at most once, if the recording cannot continue. Must not log.
    using Ended = std::function<void(const Trouble& trouble)>;

    /// A new file that only its owner may read, because it holds audio.
    static Result<std::shared_ptr<RecordingFile>> create(const std::filesystem::path& path, Ended ended);
    RecordingFile(Descriptor file, Ended ended) : file_(std::move(file)), ended_(std::move(ended)) {}

    /// Writes `line` and a newline.
    void write(std::string_view line);

  private:
    std::mutex mutex_;
    Descriptor file_;
    off_t length_ = 0;  ///< of the complete lines
    Ended ended_;
};

}  // namespace kzq::recorder
