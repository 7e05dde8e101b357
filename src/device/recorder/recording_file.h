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

/// The file that a recording goes into. Each line is in it when `write` returns, so that a program that ends
/// at once has lost none; a disk that is full ends the recording and nothing else. Any thread.
class RecordingFile {
  public:
    /// Hears, once at most, of a recording that could not go on: a sentence. Must not log.
    using Trouble = std::function<void(const std::string& sentence)>;

    /// A new file that only its owner may read, for it holds audio. Null, with a sentence in `problem`, when
    /// there is one of that name already or it cannot be made.
    static std::shared_ptr<RecordingFile> create(const std::filesystem::path& path, Trouble trouble,
                                                 std::string& problem);
    RecordingFile(Descriptor file, Trouble trouble) : file_(std::move(file)), trouble_(std::move(trouble)) {}

    /// Writes `line` and a newline.
    void write(std::string_view line);

  private:
    std::mutex mutex_;
    Descriptor file_;
    off_t length_ = 0;  ///< of the whole lines
    Trouble trouble_;
};

}  // namespace kzq::recorder
