#pragma once

#include <string>

namespace kzq {

/// A fresh random UUID in upper-case hexadecimal with hyphens.
std::string freshUuid();

}  // namespace kzq
