#include "device/recorder/recordings.h"

#include <sys/utsname.h>

#include <cerrno>
#include <fstream>
#include <sstream>

#include "device/recorder/pcapng.h"
#include "platform/new_file.h"
#include "platform/plain_file.h"

namespace kzq::recorder {

Result<std::shared_ptr<SessionRecorder>> begin(Executor& executor, const std::filesystem::path& file,
                                               const std::string& program, RecordingFile::Ended ended) {
    return RecordingFile::create(file, std::move(ended)).map([&](auto made) {
        auto recorder = std::make_shared<SessionRecorder>(executor, std::move(made));
        utsname kernel{};
        recorder->note(program + (::uname(&kernel) == 0
                                      ? std::string(", ") + kernel.sysname + " " + kernel.release
                                      : ""));
        return recorder;
    });
}

Result<Recording> read(const std::filesystem::path& file) {
    if (const auto opened = openPlainFile(file, Links::followed); !opened) {
        return opened.error();
    }
    std::ifstream stream(file);
    auto recording = readRecording(stream);
    if (!recording) {
        const auto& fault = recording.error();
        return Trouble{fault.kind, file.string(), 0, fault.where + " " + fault.words};
    }
    return recording;
}

Result<void> capture(const std::filesystem::path& recording, const std::filesystem::path& capture,
                     bool audio) {
    const auto events = read(recording);
    if (!events) {
        return events.error();
    }
    std::ostringstream packets;
    writePcapng(packets, *events, audio);
    if (!packets) {
        return Trouble{Trouble::Kind::file, capture.string(),
                       ENOMEM};  // a stream says no more than that it failed
    }
    const auto bytes = std::move(packets).str();
    auto written =
        writeFileNamed(capture, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    if (!written) {
        written.error().where = capture.string();
    }
    return written;
}

}  // namespace kzq::recorder
