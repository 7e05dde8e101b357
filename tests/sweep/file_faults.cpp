#include "file_faults.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <mutex>
#include <utility>

namespace kzq::test {

namespace {

std::mutex mutex;  ///< guards what follows
bool armed = false;
std::size_t due = 0;
FileFault answer{};
unsigned closed = 0;
std::vector<std::string> called;

/// The errno value that the call gets; 0: it goes on, -1: half of it.
int strike(const char* call) {
    const std::lock_guard guard(mutex);
    if (!armed) {
        return 0;
    }
    called.emplace_back(call);
    const bool hit = called.size() == due && answer.concerns(call);
    return !hit ? 0 : answer.error == 0 ? -1 : answer.error;
}

bool isClosed(unsigned road) {
    const std::lock_guard guard(mutex);
    return armed && closed >= road;
}

template <class... Arguments>
auto passed(const char* call, long number, Arguments... arguments) {
    if (const int error = strike(call); error > 0) {
        errno = error;
        return -1L;
    }
    return ::syscall(number, arguments...);
}

int refused(int error) {
    errno = error;
    return -1;
}

template <class... Offset>
ssize_t written(const char* call, long number, int file, const void* from, std::size_t size, Offset... at) {
    const int error = strike(call);
    return error > 0 ? refused(error)
                     : ::syscall(number, file, from, error < 0 ? (size + 1) / 2 : size, at...);
}

}  // namespace

void armFiles(std::size_t at, FileFault fault, unsigned closedRoads) {
    const std::lock_guard guard(mutex);
    armed = true;
    due = at;
    answer = fault;
    closed = closedRoads;
    called.clear();
}

std::vector<std::string> disarmFiles() {
    const std::lock_guard guard(mutex);
    armed = false;
    return std::exchange(called, {});
}

}  // namespace kzq::test

// In place of the C library's, for this program and the libraries that it uses. Under names of our own, as
// the system's headers have inline definitions of some.
extern "C" {

using kzq::test::isClosed;
using kzq::test::passed;
using kzq::test::refused;
using kzq::test::written;

// NOLINTBEGIN(cert-dcl50-cpp): as they are declared there
int faultyOpen(const char* path, int flags, ...) __asm__("open");
int faultyOpen(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    return static_cast<int>(passed("open", SYS_openat, AT_FDCWD, path, flags, mode));
}

int faultyOpenAt(int folder, const char* path, int flags, ...) __asm__("openat");
int faultyOpenAt(int folder, const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    if ((flags & O_TMPFILE) == O_TMPFILE && isClosed(1)) {
        return refused(EOPNOTSUPP);
    }
    return static_cast<int>(passed("openat", SYS_openat, folder, path, flags, mode));
}
// NOLINTEND(cert-dcl50-cpp)

ssize_t faultyWrite(int file, const void* from, std::size_t size) __asm__("write");
ssize_t faultyWrite(int file, const void* from, std::size_t size) {
    return written("write", SYS_write, file, from, size);
}

ssize_t faultyPwrite(int file, const void* from, std::size_t size, off_t at) __asm__("pwrite");
ssize_t faultyPwrite(int file, const void* from, std::size_t size, off_t at) {
    return written("pwrite", SYS_pwrite64, file, from, size, at);
}

ssize_t faultyPread(int file, void* into, std::size_t size, off_t at) __asm__("pread");
ssize_t faultyPread(int file, void* into, std::size_t size, off_t at) {
    return passed("pread", SYS_pread64, file, into, size, at);
}

/// Files of a test need not survive a power cut.
int faultySync(int file) __asm__("fsync");
int faultySync(int /*file*/) {
    return static_cast<int>(passed("fsync", SYS_getpid) < 0 ? -1 : 0);
}

int faultyLink(const char* from, const char* to) __asm__("link");
int faultyLink(const char* from, const char* to) {
    return static_cast<int>(passed("link", SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int faultyLinkAt(int from, const char* path, int to, const char* name, int flags) __asm__("linkat");
int faultyLinkAt(int from, const char* path, int to, const char* name, int flags) {
    return isClosed(3) ? refused(EPERM)
                       : static_cast<int>(passed("linkat", SYS_linkat, from, path, to, name, flags));
}

int faultyRename(const char* from, const char* to) __asm__("rename");
int faultyRename(const char* from, const char* to) {
    return static_cast<int>(passed("rename", SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int faultyRenameAt(int from, const char* path, int to, const char* name) __asm__("renameat");
int faultyRenameAt(int from, const char* path, int to, const char* name) {
    return static_cast<int>(passed("renameat", SYS_renameat2, from, path, to, name, 0));
}

int faultyRenameAt2(int from, const char* path, int to, const char* name,
                    unsigned flags) __asm__("renameat2");
int faultyRenameAt2(int from, const char* path, int to, const char* name, unsigned flags) {
    return isClosed(2) ? refused(EINVAL)
                       : static_cast<int>(passed("renameat2", SYS_renameat2, from, path, to, name, flags));
}

int faultyMakeFolder(const char* path, mode_t mode) __asm__("mkdir");
int faultyMakeFolder(const char* path, mode_t mode) {
    return static_cast<int>(passed("mkdir", SYS_mkdirat, AT_FDCWD, path, mode));
}
}
