#pragma once

#include <string>

namespace kzq {

/// Of the library that is loaded: "1.0.26". Any thread.
std::string libusbVersion();

}  // namespace kzq
