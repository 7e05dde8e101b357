#include "updates/update_build.h"

#include <cstdlib>
#include <string_view>
#include <system_error>

#include "updates/build_settings.h"
#include "updates/maker.h"
#include "updates/replace_file.h"

namespace kzq {
namespace {

std::vector<UpdateKey> keysFrom(std::string_view list) {
    std::vector<UpdateKey> keys;
    while (!list.empty()) {
        const auto end = std::min(list.find(';'), list.size());
        if (const auto key = updateKeyFrom(list.substr(0, end))) {
            keys.push_back(*key);
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return keys;
}

}  // namespace

UpdateBuild UpdateBuild::ofThisProgram() {
    return {std::string(build::version), keysFrom(build::updateKeys), build::distribution, websiteAddress()};
}

Installation Installation::of(const char* appImageVariable, const std::filesystem::path& executable) {
    std::error_code error;
    if (appImageVariable != nullptr && *appImageVariable != '\0') {
        const auto file = std::filesystem::canonical(appImageVariable, error);
        return !error && isPlainFile(file) ? Installation{PackageKind::appImage, file} : Installation{};
    }
    const auto text = executable.string();
    const bool packaged =
        (text.starts_with("/usr/") && !text.starts_with("/usr/local/")) || text.starts_with("/opt/");
    return {packaged ? PackageKind::debian : PackageKind::other, {}};
}

Installation Installation::ofThisProgram() {
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return of(std::getenv("APPIMAGE"), executable);  // NOLINT(concurrency-mt-unsafe): nothing sets it
}

bool canInstall(const UpdateBuild& build, const Installation& installation) {
    return !build.distribution && !build.keys.empty() && installation.kind != PackageKind::other;
}

}  // namespace kzq
