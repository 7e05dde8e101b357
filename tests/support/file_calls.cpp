#include "file_calls.h"

#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace kzq::test {

std::atomic<unsigned> closedRoads = 0;

namespace {

int refused(int error) {
    errno = error;
    return -1;
}

template <class... Arguments>
int passed(const FileCall& call, long number, Arguments... arguments) {
    if (const int error = answerTo(call); error > 0) {
        return refused(error);
    }
    const auto result = ::syscall(number, arguments...);
    const int error = errno;
    if (result >= 0) {
        ended(call);
    }
    errno = error;
    return static_cast<int>(result);
}

template <class... Offset>
ssize_t written(const FileCall& call, long number, const void* from, std::size_t size, Offset... at) {
    const int error = answerTo(call);
    if (error > 0) {
        return refused(error);
    }
    const ssize_t count = ::syscall(number, call.file, from, error < 0 ? (size + 1) / 2 : size, at...);
    ended(call);
    return count;
}

int opened(int folder, const char* path, int flags, unsigned mode) {
    const bool unnamed = (flags & O_TMPFILE) == O_TMPFILE;
    return unnamed && closedRoads >= 1
               ? refused(EOPNOTSUPP)
               : passed({"open", -1, folder, path, flags}, SYS_openat, folder, path, flags, mode);
}

/// In any case.
int closed(int file) {
    const int error = answerTo({"close", file});
    const auto result = ::syscall(SYS_close, file);
    return error > 0 ? refused(error) : static_cast<int>(result);
}

}  // namespace
}  // namespace kzq::test

// NOLINTBEGIN(cert-dcl50-cpp, *-macro-*, *-reserved-identifier): as they are declared there
// Under names of our own, as the system's headers have inline definitions of some.
#define IN_PLACE_OF(call, result, parameters, ...) \
    result test_##call parameters __asm__(#call);  \
    result test_##call parameters {                \
        return __VA_ARGS__;                        \
    }                                              \
    static_assert(true)
#define ALSO_IN_PLACE_OF(other, call, result, parameters) \
    result test_##other parameters __asm__(#other) __attribute__((alias(#call)))

extern "C" {

using namespace kzq::test;

int test_open(const char* path, int flags, ...) __asm__("open");
int test_open(const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    return opened(AT_FDCWD, path, flags, mode);
}
ALSO_IN_PLACE_OF(open64, open, int, (const char* path, int flags, ...));

int test_openat(int folder, const char* path, int flags, ...) __asm__("openat");
int test_openat(int folder, const char* path, int flags, ...) {
    std::va_list rest;
    va_start(rest, flags);
    const auto mode = va_arg(rest, unsigned);
    va_end(rest);
    return opened(folder, path, flags, mode);
}

// as a distribution's hardening has it
IN_PLACE_OF(__open_2, int, (const char* path, int flags), test_open(path, flags, 0));
ALSO_IN_PLACE_OF(__open64_2, __open_2, int, (const char* path, int flags));
IN_PLACE_OF(__openat_2, int, (int folder, const char* path, int flags), test_openat(folder, path, flags, 0));
ALSO_IN_PLACE_OF(__openat64_2, __openat_2, int, (int folder, const char* path, int flags));

IN_PLACE_OF(write, ssize_t, (int file, const void* from, std::size_t size),
            written({"write", file}, SYS_write, from, size));
IN_PLACE_OF(pwrite, ssize_t, (int file, const void* from, std::size_t size, off_t at),
            written({"pwrite", file}, SYS_pwrite64, from, size, at));
IN_PLACE_OF(sendfile, ssize_t,
            (int to, int from, off_t* at, std::size_t size),  // in the standard library's copies
            passed({"sendfile", to}, SYS_sendfile, to, from, at, size));
IN_PLACE_OF(pread, ssize_t, (int file, void* into, std::size_t size, off_t at),
            passed({"pread", file}, SYS_pread64, file, into, size, at));
IN_PLACE_OF(ftruncate, int, (int file, off_t size), passed({"ftruncate", file}, SYS_ftruncate, file, size));
ALSO_IN_PLACE_OF(ftruncate64, ftruncate, int, (int file, off_t size));
IN_PLACE_OF(fchmod, int, (int file, mode_t mode), passed({"fchmod", file}, SYS_fchmod, file, mode));
/// Files of a test need not survive a power cut.
IN_PLACE_OF(fsync, int, (int file), passed({"fsync", file}, SYS_fcntl, file, F_GETFD) < 0 ? -1 : 0);
ALSO_IN_PLACE_OF(fdatasync, fsync, int, (int file));
IN_PLACE_OF(close, int, (int file), closed(file));
IN_PLACE_OF(linkat, int, (int from, const char* path, int to, const char* name, int flags),
            closedRoads >= 3 ? refused(EPERM)
                             : passed({"link", -1, to, name}, SYS_linkat, from, path, to, name, flags));
IN_PLACE_OF(link, int, (const char* path, const char* name), test_linkat(AT_FDCWD, path, AT_FDCWD, name, 0));
IN_PLACE_OF(renameat2, int, (int from, const char* path, int to, const char* name, unsigned flags),
            flags != 0 && closedRoads >= 2
                ? refused(EINVAL)
                : passed({"rename", -1, to, name}, SYS_renameat2, from, path, to, name, flags));
IN_PLACE_OF(renameat, int, (int from, const char* path, int to, const char* name),
            test_renameat2(from, path, to, name, 0));
IN_PLACE_OF(rename, int, (const char* path, const char* name),
            test_renameat2(AT_FDCWD, path, AT_FDCWD, name, 0));
IN_PLACE_OF(mkdir, int, (const char* path, mode_t mode),
            passed({"mkdir", -1, AT_FDCWD, path}, SYS_mkdirat, AT_FDCWD, path, mode));
IN_PLACE_OF(chmod, int, (const char* path, mode_t mode),
            passed({"chmod", -1, AT_FDCWD, path}, SYS_fchmodat, AT_FDCWD, path, mode));
IN_PLACE_OF(unlinkat, int, (int folder, const char* path, int flags),
            passed({"unlink", -1, folder, path}, SYS_unlinkat, folder, path, flags));
IN_PLACE_OF(unlink, int, (const char* path), test_unlinkat(AT_FDCWD, path, 0));
IN_PLACE_OF(rmdir, int, (const char* path), test_unlinkat(AT_FDCWD, path, AT_REMOVEDIR));
IN_PLACE_OF(remove, int, (const char* path),
            test_unlink(path) == 0 ? 0
            : errno == EISDIR      ? test_rmdir(path)
                                   : -1);
}
// NOLINTEND(cert-dcl50-cpp, *-macro-*)
