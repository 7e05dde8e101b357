#include "device/recorder/recording_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "device/recorder/recording.h"
#include "platform/new_name.h"
#include "platform/write_all.h"

namespace kzq::recorder {

Result<std::shared_ptr<RecordingFile>> RecordingFile::create(const std::filesystem::path& path, Ended ended) {
    auto file = openNew(path, S_IRUSR | S_IWUSR);
    if (!file) {
        return Trouble{Trouble::Kind::file, path.string(), errno};
    }
    auto made = std::make_shared<RecordingFile>(std::move(file), std::move(ended));
    made->write(recordingHeader);
    return made;
}

void RecordingFile::write(std::string_view line) {
    const std::string text = std::string(line) + "\n";
    int error = 0;
    {
        const std::lock_guard lock(mutex_);
        if (!file_) {
            return;
        }
        error = writeAll(file_.get(), {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
        if (error == 0) {
            length_ += static_cast<off_t>(text.size());
            return;
        }
        // Complete lines can still be used; if even that fails, a reader notices the cut.
        static_cast<void>(::ftruncate(file_.get(), length_) == 0);
        file_.close();
    }
    if (ended_) {
        ended_({Trouble::Kind::file, "write", error});
    }
}

}  // namespace kzq::recorder
