#include "audio/wave_output.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "audio/wave.h"
#include "platform/unique_name.h"
#include "platform/write_all.h"

namespace kzq {
namespace {

constexpr mode_t newFileMode = 0666;
constexpr std::uint32_t stereo = 2;

/// 0, or the errno value after `result`.
int answer(int result) {
    return result == 0 ? 0 : errno;
}

Descriptor createNew(const std::filesystem::path& path) {
    return Descriptor(
        ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, newFileMode));
}

int renameOverReserved(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (!createNew(to)) {
        return errno;
    }
    const int error = answer(::rename(from.c_str(), to.c_str()));
    if (error != 0) {
        ::unlink(to.c_str());
    }
    return error;
}

}  // namespace

WaveOutput::WaveOutput(std::filesystem::path path, NewFileRoad first)
    : path_(std::move(path)), road_(first) {}

WaveOutput::~WaveOutput() {
    if (!hidden_.empty()) {
        ::unlink(hidden_.c_str());
    }
}

int WaveOutput::open() {
    struct stat facts {};
    if (::lstat(path_.c_str(), &facts) == 0) {
        return EEXIST;
    }
    if (road_ == NewFileRoad::unnamed) {
        file_ =
            Descriptor(::open(path_.parent_path().c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, newFileMode));
        if (file_) {
            return 0;
        }
        road_ = NewFileRoad::renameNoReplace;
    }
    return openHidden();
}

int WaveOutput::openHidden() {
    const auto hidden = path_.parent_path() / hiddenName();
    file_ = createNew(hidden);
    if (!file_) {
        return errno;
    }
    hidden_ = hidden;
    return 0;
}

int WaveOutput::write(std::span<const std::uint8_t> samples) {
    const int error = writeAllAt(file_.get(), samples, waveHeaderSize + sampleBytes_);
    if (error == 0) {
        sampleBytes_ += samples.size();
    }
    return error;
}

int WaveOutput::finish(bool sync) {
    const auto header = waveHeader(static_cast<std::uint32_t>(sampleBytes_), stereo);
    if (const int error = writeAllAt(file_.get(), header, 0); error != 0) {
        return error;
    }
    if (sync && ::fsync(file_.get()) != 0) {
        return errno;
    }
    return place();
}

/// Gives the file its name, without overwriting another.
int WaveOutput::place() {
    if (road_ == NewFileRoad::unnamed) {
        const std::string self = "/proc/self/fd/" + std::to_string(file_.get());
        return answer(::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path_.c_str(), AT_SYMLINK_FOLLOW));
    }
    if (road_ == NewFileRoad::renameNoReplace) {
        const int error =
            answer(::renameat2(AT_FDCWD, hidden_.c_str(), AT_FDCWD, path_.c_str(), RENAME_NOREPLACE));
        if (error == 0 || error == EEXIST) {
            return error;
        }
        road_ = NewFileRoad::link;
    }
    if (road_ == NewFileRoad::link) {
        const int error = answer(::link(hidden_.c_str(), path_.c_str()));
        if (error == 0 || error == EEXIST) {
            return error;
        }
    }
    return renameOverReserved(hidden_, path_);
}

}  // namespace kzq
