#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/fixed.h"

namespace kzq::test {

/// A temporary folder for a test.
class TestFolder : Fixed {
  public:
    TestFolder() : TestFolder(std::filesystem::temp_directory_path()) {}
    explicit TestFolder(const std::filesystem::path& parent);
    ~TestFolder();

    const std::filesystem::path& path() const { return path_; }
    operator const std::filesystem::path&() const { return path_; }  // NOLINT(*-explicit-*): it is one
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  private:
    std::filesystem::path path_;
};

std::string readText(const std::filesystem::path& path);
void writeText(const std::filesystem::path& path, const std::string& text);
/// The names in a folder, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

}  // namespace kzq::test
