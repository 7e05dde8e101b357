#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kzq::test {

/// What a file-system call answers instead of doing its work; a write may be told to do half of it.
struct FileFault {
    const char* name;
    int error;  ///< 0: half of a write

    bool concerns(const std::string& call) const { return error != 0 || call == "write" || call == "pwrite"; }
};

/// Which of the file system's ways to give a file its name are there: all of them, or so many fewer.
inline constexpr unsigned mostClosedRoads = 3;

/// From now on calls that open, write, sync, name or make something are counted, of all threads of this
/// program; the `at`-th, from 1, fails.
void armFiles(std::size_t at, FileFault fault, unsigned closedRoads = 0);
/// No longer. The names of the calls since then.
std::vector<std::string> disarmFiles();

}  // namespace kzq::test
