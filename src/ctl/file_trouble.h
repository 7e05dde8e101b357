#pragma once

#include <string>

namespace kzq::ctl {

/// What an errno value means for a file that was to be written, with the remedy: "No space left on device.
/// Make room or choose another folder."
std::string fileTrouble(int error);

}  // namespace kzq::ctl
