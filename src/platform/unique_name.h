#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kzq {

// Names that nobody else comes up with. Any thread.

/// So many random bytes, as lower-case hexadecimal digits.
std::string randomDigits(std::size_t bytes);

/// For a file that has not got its final name yet: ".kzq7306-<process>-<16 digits>.part"
std::string hiddenName();
/// Whether a file was left under such a name, by this process or another.
bool isHiddenName(std::string_view name);

/// A random UUID in upper-case hexadecimal with hyphens.
std::string freshUuid();

}  // namespace kzq
