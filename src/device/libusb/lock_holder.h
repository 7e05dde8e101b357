#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kzq {

/// Where the kernel lists locks and processes; tests supply their own.
struct ProcessPlaces {
    std::filesystem::path locks = "/proc/locks";
    std::filesystem::path processes = "/proc";
};

/// The program that holds the lock on `file`, as "kzq7306 (process 1234)"; nothing if none does, or if the
/// kernel does not show it, as across containers.
std::optional<std::string> lockHolder(const std::filesystem::path& file, const ProcessPlaces& places = {});

}  // namespace kzq
