// A program in place of the decoder. Its first argument, or else its own name, says what it does.

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

[[noreturn]] void sleepForever() {
    while (true) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

bool opens(const char* path, int flags) {
    return ::open(path, flags, 0600) >= 0;
}

/// What succeeds of that which a decoder must not do, beginning with what only Landlock refuses.
void tryEverything(const char* secret, pid_t parent) {
    char byte = 0;
    const iovec place{&byte, 1};
    const rlimit high{1 << 20, 1 << 20};
    char* const none[] = {nullptr};
    const std::vector<std::pair<const char*, std::function<bool()>>> attempts{
        {"read a file", [&] { return opens(secret, O_RDONLY); }},
        {"read /etc/passwd", [] { return opens("/etc/passwd", O_RDONLY); }},
        {"list a folder", [] { return opens("/tmp", O_RDONLY | O_DIRECTORY); }},
        {"run a program",
         [&] {
             return !opens("/etc/passwd", O_RDONLY) && ::execve("/bin/sh", none, none) != 0 &&
                    errno != EACCES;
         }},
        // Landlock is not the only one to refuse this.
        {"write a file", [&] { return opens(secret, O_WRONLY) || errno == EACCES; }},
        {"make a file", [] { return opens("/tmp", O_TMPFILE | O_RDWR); }},
        {"write its source", [] { return opens("/proc/self/fd/3", O_RDWR); }},
        {"change a mode", [&] { return ::chmod(secret, 0777) == 0; }},
        {"remove a file", [&] { return ::unlink(secret) == 0; }},
        {"use the network", [] { return ::socket(AF_INET, SOCK_DGRAM, 0) >= 0; }},
        {"use a socket", [] { return ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0; }},
        {"trace", [] { return ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0; }},
        {"read its parent", [&] { return ::process_vm_readv(parent, &place, 1, &place, 1, 0) >= 0; }},
        {"signal its parent", [&] { return ::kill(parent, 0) == 0; }},
        {"start a process", [] { return ::fork() >= 0; }},
        {"change a limit", [&] { return ::setrlimit(RLIMIT_CPU, &high) == 0; }}};
    for (const auto& [what, succeeds] : attempts) {
        if (succeeds()) {
            std::puts(what);
        }
    }
}

void showItself() {
    for (char** variable = environ; *variable != nullptr; ++variable) {
        std::puts(*variable);
    }
    for (int file = 0; file < 50; ++file) {
        if (::fcntl(file, F_GETFD) >= 0) {
            std::printf("%d ", file);
        }
    }
    for (const auto what : {RLIMIT_AS, RLIMIT_CPU, RLIMIT_FSIZE, RLIMIT_CORE}) {
        rlimit limits{};
        ::getrlimit(what, &limits);
        std::printf("%lu ", static_cast<unsigned long>(limits.rlim_max));
    }
    std::puts(std::signal(SIGPIPE, SIG_DFL) == SIG_DFL ? "dies of a closed pipe" : "ignores a closed pipe");
}

constexpr auto description =
    "#codec_id 0: pcm_s24le\n#sample_rate 0: 44100\n#channel_layout_name 0: stereo\n";

bool writesFile() {
    struct stat facts {};
    return ::fstat(STDOUT_FILENO, &facts) == 0 && S_ISREG(facts.st_mode);
}

void write(std::size_t size) {
    const std::vector<char> sound(size);
    std::fwrite(sound.data(), 1, size, stdout);
    std::fflush(stdout);
}

int work(std::string_view what, char** arguments) {
    const std::string_view last = arguments[1] == nullptr ? "" : arguments[1];
    if (what == "try") {
        std::thread([] { std::puts(opens("/proc/self/fd/3", O_RDONLY) ? "its source" : "nothing"); }).join();
        tryEverything(last.data(), ::getppid());
    } else if (what == "show") {
        showItself();
    } else if (what == "useless") {
        std::fputs("error while loading shared libraries", stderr);
        return 127;
    } else if (what == "full" && writesFile()) {  // as if the disk were
        write(300);
        std::fputs(description, stderr);
        std::fputs("Error writing trailer of pipe:1: No space left on device\n", stderr);
    } else if (what == "full" || (what == "stuck" && !writesFile())) {
        write(600);
    } else if (what == "silent" || what == "stuck") {
        sleepForever();
    } else if (what == "closed") {
        ::close(STDOUT_FILENO);
        ::close(STDERR_FILENO);
        sleepForever();
    } else if (what == "complaining") {
        while (std::fputs("complaint\n", stderr) >= 0) {
        }
    } else if (what == "endless") {
        while (true) {
            write(1 << 20);
        }
    } else {
        write(6);
        sleepForever();
    }
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::vector<std::string_view> words(arguments, arguments + count);
    const bool asked = std::ranges::find(words, "framecrc") != words.end() && words.back() == "pipe:1";
    if (asked && !words[0].ends_with("useless")) {
        std::fputs(description, stdout);
        return 0;
    }
    return work(words[0].substr(words[0].rfind('/') + 1), arguments);
}
