#include "ctl/udev_rule.h"

#include <fstream>
#include <string>
#include <system_error>

namespace kzq::ctl {
namespace {

bool speaksOfPedal(const std::filesystem::path& file) {
    std::ifstream stream(file);
    bool vendor = false;
    bool product = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        vendor = vendor || line.find("308a") != std::string::npos;
        product = product || line.find("0104") != std::string::npos;
        if (vendor && product) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<std::filesystem::path> udevRuleFolders() {
    return {"/etc/udev/rules.d", "/run/udev/rules.d", "/usr/local/lib/udev/rules.d", "/usr/lib/udev/rules.d",
            "/lib/udev/rules.d"};
}

bool udevRuleInstalled(const std::vector<std::filesystem::path>& folders) {
    for (const auto& folder : folders) {
        std::error_code error;
        for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            if (entry->path().extension() == ".rules" && speaksOfPedal(entry->path())) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace kzq::ctl
