#pragma once

#include <filesystem>

namespace kzq {

struct AppParts;

/// The guide for users that belongs to `program`, a file: installed below the same prefix, or made by the
/// same build. Empty if there is none.
std::filesystem::path guideOf(const std::filesystem::path& program);
/// Opens the guide in the user's browser; says in the status line if there is none. Main thread.
void openUserGuide(AppParts& parts);

}  // namespace kzq
