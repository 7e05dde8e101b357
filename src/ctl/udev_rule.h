#pragma once

#include <filesystem>
#include <vector>

namespace kzq::ctl {

/// Where udev looks for rules.
std::vector<std::filesystem::path> udevRuleFolders();

/// Whether a rules file in one of `folders` speaks of the pedal.
bool udevRuleInstalled(const std::vector<std::filesystem::path>& folders);

}  // namespace kzq::ctl
