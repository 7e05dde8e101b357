// Linked into every program whose lines are counted: one that leaves by _Exit or _exit, or is ended by
// SIGTERM, writes its counters first.
#include <csignal>

extern "C" {
void __gcov_dump();
[[noreturn]] void __real__Exit(int status);
[[noreturn]] void __real__exit(int status);

[[noreturn]] void __wrap__Exit(int status) {
    __gcov_dump();
    __real__Exit(status);
}

[[noreturn]] void __wrap__exit(int status) {
    __gcov_dump();
    __real__exit(status);
}

static void endCounted(int signal) {
    __gcov_dump();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}
}

// Before main, so that a program's own handler takes its place.
[[maybe_unused]] static const auto before = std::signal(SIGTERM, endCounted);
