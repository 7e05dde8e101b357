#include "troubleshooting/root_shell.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <string_view>
#include <vector>

#include "words/words.h"

namespace kzq {

namespace {

namespace fs = std::filesystem;

fs::path found(const std::string& program, const std::string& path) {
    std::istringstream folders(path);
    for (std::string folder; std::getline(folders, folder, ':');) {
        auto file = fs::path(folder) / program;
        std::error_code ignored;
        if (file.is_absolute() && fs::is_regular_file(file, ignored) && ::access(file.c_str(), X_OK) == 0) {
            return file;
        }
    }
    return {};
}

/// Its exit status, or 128 and more if it did not end by itself; negative if it could not be started.
int statusOf(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (auto& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    // What this program ignores or blocks, its children would too.
    sigset_t usual;
    sigemptyset(&usual);
    sigaddset(&usual, SIGPIPE);
    sigaddset(&usual, SIGXFSZ);
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_t attributes{};
    ::posix_spawnattr_init(&attributes);
    ::posix_spawnattr_setsigdefault(&attributes, &usual);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    pid_t child = 0;
    const int error =
        ::posix_spawn(&child, arguments.front(), nullptr, &attributes, arguments.data(), ::environ);
    ::posix_spawnattr_destroy(&attributes);
    if (error != 0) {
        return -error;
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return -errno;
        }
    }
    constexpr int signalled = 128;
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

/// The words of a single program with plain arguments, which needs no shell: polkit asks for it in its own
/// words, if it has some. Otherwise empty.
std::vector<std::string> plainWords(const std::string& commands) {
    const bool plain = commands.starts_with('/') && std::ranges::all_of(commands, [](unsigned char c) {
                           return std::isalnum(c) != 0 ||
                                  std::string_view("/._- ").find(static_cast<char>(c)) != std::string::npos;
                       });
    std::istringstream text(plain ? commands : std::string());
    return {std::istream_iterator<std::string>(text), {}};
}

std::string reasonOf(int status, const std::string& program) {
    constexpr int dismissed = 126;
    constexpr int notAllowed = 127;
    if (program == "pkexec" && status == dismissed) {
        return words("no password was given");
    }
    if (program == "pkexec" && status == notAllowed) {
        return words("the password could not be asked for, or it was wrong");
    }
    return status < 0 ? words("%1 could not be started", program)
                      : words("the commands ended with status %1", status);
}

}  // namespace

RootPlaces RootPlaces::ofThisProcess() {
    const char* const path = std::getenv("PATH");  // NOLINT(concurrency-mt-unsafe): nothing here sets it
    return {path == nullptr ? "" : path, ::geteuid() == 0};
}

RootShell rootShell(const RootPlaces& places) {
    const auto pkexec = places.isRoot ? fs::path() : found("pkexec", places.path);
    if (!places.isRoot && pkexec.empty()) {
        return {};
    }
    return [pkexec](const std::string& commands) -> Result<void> {
        auto line = plainWords(commands);
        if (line.empty()) {
            line = {"/bin/sh", "-c", commands};
        }
        if (!pkexec.empty()) {
            line.insert(line.begin(), pkexec.string());
        }
        const int status = statusOf(line);
        const auto program = fs::path(line.front()).filename().string();
        return status == 0
                   ? Result<void>()
                   : Result<void>(Trouble{Trouble::Kind::declined, program, 0, reasonOf(status, program)});
    };
}

}  // namespace kzq
