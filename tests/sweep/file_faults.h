#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "file_calls.h"

namespace kzq::test {

/// What a file-system call answers instead of doing its work; a write may be told to do half of it.
struct FileFault {
    const char* name;
    int error;                   ///< 0: half of a write
    std::string_view only = {};  ///< the calls that it can befall; empty: any that is not named here

    bool concerns(std::string_view call) const {
        constexpr std::string_view special = "close";
        return only.empty() ? call != special : only.find(call) != std::string_view::npos;
    }
};

/// From now on calls that open, write, sync, name, make or remove something are counted, of all threads of
/// this program; the `at`-th, from 1, fails.
void armFiles(std::size_t at, FileFault fault, unsigned closed = 0);
/// No longer. The names of the calls since then.
std::vector<std::string> disarmFiles();

}  // namespace kzq::test
