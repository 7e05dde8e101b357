#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace kzq {

/// Where it is looked; tests supply their own.
struct ComputerPlaces {
    std::filesystem::path release = "/etc/os-release";
    std::function<std::string(const char* name)> variable;  ///< of the environment; empty: the process's own
};

/// The kernel, the distribution and the kind of session, a line each. Any thread.
std::vector<std::string> thisComputer(const ComputerPlaces& places = {});

/// The user's login name; empty if it is not known.
std::string loginName();

}  // namespace kzq
