#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace kzq {

/// The content of a file of certificates in PEM; empty without a path. Nothing if it cannot be read or is
/// empty.
std::optional<std::string> authoritiesIn(const std::filesystem::path& file);

}  // namespace kzq
