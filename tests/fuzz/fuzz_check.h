#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

/// Ends the fuzzer with a message if a property does not hold.
inline void require(bool holds, const char* what) {
    if (holds) {
        return;
    }
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

/// Of the fuzzer's bytes; without a NUL, which no word from outside has.
inline std::vector<std::string> linesOf(const std::uint8_t* input, std::size_t size) {
    std::istringstream text(std::string(input, input + size));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.emplace_back(line.c_str());
    }
    return lines;
}
