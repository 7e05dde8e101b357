// Preloaded into a program, kills it as one of its calls that change files begins. In the surroundings:
// CRASH_BELOW, the folder of the files that count; CRASH_LOG, a file that gets a line for each such call;
// CRASH_AT, the call, from 1; CRASH_HALF, "yes": if it writes, it does half of that before; CRASH_CLOSED, how
// many ways to name a file are missing.
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "file_calls.h"

namespace kzq::test {
namespace {

std::string setting(const char* name) {
    return std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nobody sets it
}

struct Points {
    Points() { closedRoads = static_cast<unsigned>(std::stoi(setting("CRASH_CLOSED"))); }

    const std::string below = setting("CRASH_BELOW") + "/";
    std::FILE* const log = std::fopen(setting("CRASH_LOG").c_str(), "ae");
    const int due = std::stoi(setting("CRASH_AT"));
    const bool half = setting("CRASH_HALF") == "yes";
    std::mutex mutex;  ///< guards what follows
    int count = 0;
    std::set<std::pair<dev_t, ino_t>> unsynced;

    void note(std::string_view what, const std::string& path) const {
        std::fprintf(log, "%s %s\n", what.data(), path.c_str());
        std::fflush(log);
    }
};

Points& points() {
    static auto* const all = new Points;  // never destroyed: threads may outlive the main one
    return *all;
}

std::string pathOf(const FileCall& call) {
    const auto of = [](int file) {
        std::error_code none;
        return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(file), none);
    };
    return call.path == nullptr      ? of(call.file)
           : call.folder == AT_FDCWD ? std::filesystem::absolute(call.path)
                                     : of(call.folder) / call.path;
}

bool changesFiles(const FileCall& call) {
    constexpr int changing = O_WRONLY | O_RDWR | O_CREAT;
    return call.name == "open" ? (call.flags & changing) != 0 : call.name != "pread" && call.name != "close";
}

[[noreturn]] void die() {
    ::raise(SIGKILL);
    std::abort();
}

}  // namespace

int answerTo(const FileCall& call) {
    auto& all = points();
    const auto path = changesFiles(call) ? pathOf(call) : "";
    if (!path.starts_with(all.below)) {
        return 0;
    }
    const std::lock_guard guard(all.mutex);
    all.note(call.name, path);
    if (++all.count != all.due) {
        return 0;
    }
    return all.half && call.writes() ? -1 : (die(), 0);
}

void ended(const FileCall& call) {
    auto& all = points();
    const std::lock_guard guard(all.mutex);
    if (all.half && all.due == all.count && call.writes()) {
        die();
    }
    struct stat facts {};
    const bool named = call.name == "link" || call.name == "rename";
    if (named ? ::fstatat(call.folder, call.path, &facts, 0) != 0 : ::fstat(call.file, &facts) != 0) {
        return;
    }
    const auto file = std::pair(facts.st_dev, facts.st_ino);
    if (call.writes() || call.name == "sendfile") {
        all.unsynced.insert(file);
    } else if (call.name == "fsync") {
        all.unsynced.erase(file);
    } else if (named && all.unsynced.contains(file)) {
        all.note("unsynced", pathOf(call));
    }
}

}  // namespace kzq::test
