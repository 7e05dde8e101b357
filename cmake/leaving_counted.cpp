// Linked into every program whose lines are counted: one that leaves by _Exit or _exit writes its counters first.
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
}
