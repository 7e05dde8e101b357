#include "troubleshooting/this_computer.h"

#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>

namespace kzq {

namespace {

std::string kernel() {
    utsname names{};
    return ::uname(&names) == 0 ? std::string(names.sysname) + " " + names.release + " " + names.machine
                                : "unknown kernel";
}

std::string distribution(const std::filesystem::path& release) {
    constexpr std::string_view key = "PRETTY_NAME=";
    std::ifstream file(release);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key)) {
            std::erase(line, '"');
            return line.substr(key.size());
        }
    }
    return "unknown distribution";
}

std::string ownVariable(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing here sets it
    return value == nullptr ? "" : value;
}

}  // namespace

std::vector<std::string> thisComputer(const ComputerPlaces& places) {
    std::string session;
    for (const auto* const name : {"XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORM"}) {
        const auto value = places.variable ? places.variable(name) : ownVariable(name);
        session += value.empty() ? "" : (session.empty() ? "" : ", ") + value;
    }
    const auto remote = places.variable ? places.variable("SSH_CONNECTION") : ownVariable("SSH_CONNECTION");
    session += remote.empty() ? "" : (session.empty() ? "" : ", ") + std::string("over the network");
    return {kernel(), distribution(places.release), "session: " + (session.empty() ? "unknown" : session)};
}

std::string loginName() {
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr) {
        return entry.pw_name;
    }
    return ownVariable("USER");
}

}  // namespace kzq
