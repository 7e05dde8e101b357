#include "platform/process.h"

#include <fcntl.h>
#include <gnu/libc-version.h>
#include <malloc.h>
#include <unistd.h>

#include <charconv>
#include <csignal>
#include <cstdlib>
#include <string_view>

namespace kzq {

bool occupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0 &&
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) {
            return false;
        }
    }
    return true;
}

void ignoreWriteSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

void returnFreedLoops() {
    constexpr int mapped = 1 << 20;       // bytes; a fixed threshold is no longer raised by what is freed
    ::mallopt(M_MMAP_THRESHOLD, mapped);  // NOLINT(concurrency-mt-unsafe): called before there are threads
}

std::uint64_t systemMinorVersion() {
    const std::string_view version = gnu_get_libc_version();
    const auto dot = version.find('.');
    std::uint64_t minor = 0;
    if (dot != std::string_view::npos) {
        std::from_chars(version.data() + dot + 1, version.data() + version.size(), minor);
    }
    return minor;
}

std::filesystem::path homeFolder() {
    const char* const home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe): nothing here sets it
    return home != nullptr ? home : "";
}

std::filesystem::path programFolderIn(const std::filesystem::path& home) {
    return home.empty() ? home : home / "Library/Application Support/com.kzq.7306";
}

}  // namespace kzq
