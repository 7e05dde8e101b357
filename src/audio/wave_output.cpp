#include "audio/wave_output.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "audio/wave.h"

namespace kzq {
namespace {

constexpr mode_t newFileMode = 0666;
constexpr std::uint32_t stereo = 2;

int writeAt(int file, std::span<const std::uint8_t> bytes, std::uint64_t offset) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        if (written == 0) {
            return EIO;
        }
        if (written > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(written));
            offset += static_cast<std::uint64_t>(written);
        }
    }
    return 0;
}

}  // namespace

WaveOutput::WaveOutput(std::filesystem::path path) : path_(std::move(path)) {}

WaveOutput::~WaveOutput() {
    if (named_) {
        ::unlink(path_.c_str());
    }
}

int WaveOutput::open() {
    struct stat facts {};
    if (::lstat(path_.c_str(), &facts) == 0) {
        return EEXIST;
    }
    file_ = Descriptor(::open(path_.parent_path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, newFileMode));
    if (file_) {
        return 0;
    }
    // A file system without nameless files.
    file_ =
        Descriptor(::open(path_.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, newFileMode));
    named_ = static_cast<bool>(file_);
    return named_ ? 0 : errno;
}

int WaveOutput::write(std::span<const std::uint8_t> samples) {
    const int error = writeAt(file_.get(), samples, waveHeaderSize + sampleBytes_);
    if (error == 0) {
        sampleBytes_ += samples.size();
    }
    return error;
}

int WaveOutput::finish(bool sync) {
    const auto header = waveHeader(static_cast<std::uint32_t>(sampleBytes_), stereo);
    if (const int error = writeAt(file_.get(), header, 0); error != 0) {
        return error;
    }
    if (sync && ::fsync(file_.get()) != 0) {
        return errno;
    }
    const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
    if (!named_ && ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path_.c_str(), AT_SYMLINK_FOLLOW) != 0) {
        return errno;
    }
    named_ = false;
    return 0;
}

}  // namespace kzq
