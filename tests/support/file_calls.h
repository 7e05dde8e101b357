#pragma once

#include <fcntl.h>

#include <atomic>
#include <string_view>

namespace kzq::test {

/// A call that opens, writes, reads, syncs, names, makes or removes something.
struct FileCall {
    std::string_view name;
    int file = -1;               ///< an open one
    int folder = AT_FDCWD;       ///< where `path` begins
    const char* path = nullptr;  ///< of what is opened, made or removed, or its new name
    int flags = 0;               ///< of an open

    bool writes() const { return name == "write" || name == "pwrite"; }
};

// What takes the place of the C library's calls, for this program and the libraries that it uses, calls these
// two, which the program defines. Any thread.

/// The errno value that it gets; 0: it does its work, -1: half of it, if it writes.
int answerTo(const FileCall& call);
/// It has done so.
void ended(const FileCall& call);

/// Which of the file system's ways to give a file its name are there: all of them, or so many fewer.
inline constexpr unsigned mostClosedRoads = 3;
extern std::atomic<unsigned> closedRoads;

}  // namespace kzq::test
