#include "audio/call_filter.h"

#include <fcntl.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <memory>

#include "platform/descriptor.h"

namespace kzq {
namespace {

/// By name, as not every machine has all. With no process to reach and no file to change, they need no closer
/// look.
constexpr auto harmless = std::to_array<const char*>({"access",
                                                      "arch_prctl",
                                                      "brk",
                                                      "clock_getres",
                                                      "clock_gettime",
                                                      "clock_nanosleep",
                                                      "close",
                                                      "epoll_pwait",
                                                      "execve",
                                                      "exit",
                                                      "exit_group",
                                                      "faccessat",
                                                      "faccessat2",
                                                      "fadvise64",
                                                      "fcntl",
                                                      "fstat",
                                                      "fstatfs",
                                                      "futex",
                                                      "getcwd",
                                                      "getdents64",
                                                      "getegid",
                                                      "geteuid",
                                                      "getgid",
                                                      "getpid",
                                                      "getppid",
                                                      "getrandom",
                                                      "getrlimit",
                                                      "getrusage",
                                                      "gettid",
                                                      "gettimeofday",
                                                      "getuid",
                                                      "lseek",
                                                      "lstat",
                                                      "madvise",
                                                      "membarrier",
                                                      "mlock",
                                                      "mmap",
                                                      "mprotect",
                                                      "mremap",
                                                      "munmap",
                                                      "nanosleep",
                                                      "newfstatat",
                                                      "poll",
                                                      "ppoll",
                                                      "pread64",
                                                      "pselect6",
                                                      "read",
                                                      "readlink",
                                                      "readlinkat",
                                                      "readv",
                                                      "restart_syscall",
                                                      "rseq",
                                                      "rt_sigaction",
                                                      "rt_sigprocmask",
                                                      "rt_sigreturn",
                                                      "rt_sigtimedwait",
                                                      "sched_getaffinity",
                                                      "sched_yield",
                                                      "select",
                                                      "set_robust_list",
                                                      "set_tid_address",
                                                      "sigaltstack",
                                                      "stat",
                                                      "statfs",
                                                      "statx",
                                                      "sysinfo",
                                                      "time",
                                                      "uname",
                                                      "write",
                                                      "writev"});

struct Free {
    void operator()(void* context) const { seccomp_release(context); }
};
using Context = std::unique_ptr<void, Free>;

bool add(const Context& context, const char* name, std::initializer_list<scmp_arg_cmp> conditions = {}) {
    const int call = seccomp_syscall_resolve_name(name);
    return call == __NR_SCMP_ERROR ||  // this machine does without
           seccomp_rule_add_array(context.get(), SCMP_ACT_ALLOW, call,
                                  static_cast<unsigned>(conditions.size()), conditions.begin()) == 0;
}

/// The argument at `place` has none of `bits`.
scmp_arg_cmp without(unsigned place, std::uint64_t bits) {
    return {place, SCMP_CMP_MASKED_EQ, bits, 0};
}

scmp_arg_cmp is(unsigned place, std::uint64_t value) {
    return {place, SCMP_CMP_EQ, value, 0};
}

bool addAll(const Context& context) {
    constexpr std::uint64_t changes = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC;
    bool added = true;
    for (const char* const name : harmless) {
        added = added && add(context, name);
    }
    return added && add(context, "open", {without(1, changes)}) &&
           add(context, "openat", {without(2, changes)}) && add(context, "ioctl", {is(1, TCGETS)}) &&
           add(context, "prctl", {is(0, PR_SET_NAME)}) &&
           add(context, "prlimit64", {is(0, 0), is(2, 0)}) &&  // only asks
           add(context, "clone", {{0, SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD}});
}

std::vector<sock_filter> compiled() {
    // What is not there is not used: libraries do without newer calls, such as clone3, which hides its flags.
    const Context context(seccomp_init(SCMP_ACT_ERRNO(ENOSYS)));
    const Descriptor file(static_cast<int>(::memfd_create("filter", MFD_CLOEXEC)));
    if (!context || !file || !addAll(context) || seccomp_export_bpf(context.get(), file.get()) != 0) {
        return {};
    }
    const off_t size = ::lseek(file.get(), 0, SEEK_END);
    std::vector<sock_filter> filter(static_cast<std::size_t>(size) / sizeof(sock_filter));
    const bool read = ::pread(file.get(), filter.data(), static_cast<std::size_t>(size), 0) == size;
    return read ? filter : std::vector<sock_filter>();
}

}  // namespace

const std::vector<sock_filter>& callFilter() {
    static const std::vector<sock_filter> filter = compiled();
    return filter;
}

bool obeyCallFilter(const std::vector<sock_filter>& filter) {
    const sock_fprog program{static_cast<unsigned short>(filter.size()),
                             const_cast<sock_filter*>(filter.data())};
    return ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) == 0;
}

}  // namespace kzq
