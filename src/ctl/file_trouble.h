#pragma once

#include <string>

namespace kzq::ctl {

/// Why a file could not be written, from an errno value, and what to do: "No space left on device. Free some
/// space or choose another folder."
std::string fileTrouble(int error);

}  // namespace kzq::ctl
