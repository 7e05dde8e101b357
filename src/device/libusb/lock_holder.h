#pragma once

#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>

#include "words/words.h"

namespace kzq {

/// Where the kernel lists locks and processes; tests supply their own.
struct ProcessPlaces {
    std::filesystem::path locks = "/proc/locks";
    std::filesystem::path processes = "/proc";
    int self = ::getpid();  ///< which is not another program
};

struct LockHolder {
    std::string program;
    int process = 0;

    /// "kzq7306 (process 1234)"
    std::string words() const { return kzq::words("%1 (process %2)", program, process); }
};

/// The program that holds the lock on `file`; nothing if none does, or if the kernel does not show it, as
/// across containers.
std::optional<LockHolder> lockHolder(const std::filesystem::path& file, const ProcessPlaces& places = {});

}  // namespace kzq
