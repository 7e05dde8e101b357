#pragma once

#include <filesystem>

namespace kzq {

/// Has `program` started as soon as this process is gone, which must end within ten seconds: until then it
/// holds the pedal. False if that program cannot be started.
bool relaunchAfterThis(const std::filesystem::path& program);

}  // namespace kzq
