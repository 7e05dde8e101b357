#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kzq {

/// Whether `folders`, highest priority first, have a rule that lets users open the pedal.
bool hasAccessRule(const std::vector<std::filesystem::path>& folders);
/// ... a rule that runs the helper that import needs, and one that lets users open the file it needs.
bool hasHelperRule(const std::vector<std::filesystem::path>& folders);
bool hasRoadRule(const std::vector<std::filesystem::path>& folders);

/// What installs, applies and removes the rules with polkit's consent; where this build puts it, whether or
/// not it is there.
std::filesystem::path installedSetUp();

/// The commands that install the rules and the helper that `program` came with: those in a folder
/// "packaging" or "share/kzq7306" above it, otherwise those in the shell's folder.
std::string installingCommand(const std::filesystem::path& program);
/// ... that remove what is there of them, except what a package has: its rules are beside the helper. Empty
/// if nothing is. The first of the folders count.
std::string removingCommand(const std::vector<std::filesystem::path>& ruleFolders,
                            const std::vector<std::filesystem::path>& helperFolders);

}  // namespace kzq
