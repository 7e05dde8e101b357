#pragma once

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/descriptor.h"

namespace kzq::recorder {

/// The file of a recording. Each line is in it when `write` returns, so none is lost if the program ends
/// abruptly; a full disk ends the recording and nothing else. Any thread.
class RecordingFile {
  public:
    /// Called at most once, with a sentence, if the recording cannot continue. Must not log.
    using Trouble = std::function<void(const std::string& sentence)>;

    /// A new file that only its owner may read, because it holds audio. Null, with a sentence in `problem`,
    /// if a file of that name exists or it cannot be created.
    static std::shared_ptr<RecordingFile> create(const std::filesystem::path& path, Trouble trouble,
                                                 std::string& problem);
    RecordingFile(Descriptor file, Trouble trouble) : file_(std::move(file)), trouble_(std::move(trouble)) {}

    /// Writes `line` and a newline.
    void write(std::string_view line);

  private:
    std::mutex mutex_;
    Descriptor file_;
    off_t length_ = 0;  ///< of the complete lines
    Trouble trouble_;
};

}  // namespace kzq::recorder
