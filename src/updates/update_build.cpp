#include "updates/update_build.h"

#include <gnu/libc-version.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <system_error>

#include "platform/plain_file.h"
#include "updates/build_settings.h"
#include "updates/maker.h"

namespace kzq {
namespace {

/// Whether `file` is somewhere in `folder`; false for the root folder and for relative ones.
bool isInside(const std::filesystem::path& file, const char* folder) {
    if (folder == nullptr || *folder != '/') {
        return false;
    }
    std::error_code error;
    const auto whole = std::filesystem::weakly_canonical(folder, error);
    if (error || !whole.has_relative_path()) {
        return false;
    }
    const auto [end, at] = std::mismatch(whole.begin(), whole.end(), file.begin(), file.end());
    return (end == whole.end() || end->empty()) && at != file.end();
}

bool isRecorded(const std::filesystem::path& list, const std::string& file) {
    std::ifstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        if (line == file) {
            return true;
        }
    }
    return false;
}

bool isFromPackage(const std::filesystem::path& executable, const std::filesystem::path& records) {
    const auto text = executable.string();
    if ((!text.starts_with("/usr/") || text.starts_with("/usr/local/")) && !text.starts_with("/opt/")) {
        return false;
    }
    std::error_code error;
    std::filesystem::directory_iterator list(records, error);
    for (; !error && list != std::filesystem::directory_iterator(); list.increment(error)) {
        if (list->path().extension() == ".list" && isRecorded(list->path(), text)) {
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<UpdateKey> pinnedKeys(std::string_view list) {
    std::vector<UpdateKey> keys;
    while (!list.empty()) {
        const auto end = std::min(list.find(';'), list.size());
        const auto key = updateKeyFrom(list.substr(0, end));
        if (!key) {
            return {UpdateKey{}};  // all zeros: of small order, for which no signature is valid
        }
        keys.push_back(*key);
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return keys;
}

UpdateBuild UpdateBuild::ofThisProgram() {
    return {std::string(build::version), pinnedKeys(build::updateKeys), build::distribution, websiteAddress(),
            std::string(build::channel)};
}

Installation Installation::of(const char* appImageVariable, const char* appDirVariable,
                              const std::filesystem::path& executable,
                              const std::filesystem::path& dpkgRecords) {
    if (appImageVariable != nullptr && *appImageVariable != '\0' && isInside(executable, appDirVariable)) {
        std::error_code error;
        const auto file = std::filesystem::canonical(appImageVariable, error);
        return !error && isPlainFile(file) ? Installation{PackageKind::appImage, file} : Installation{};
    }
    return {isFromPackage(executable, dpkgRecords) ? PackageKind::debian : PackageKind::other, {}};
}

Installation Installation::ofThisProgram() {
    if (build::distribution) {
        return {};  // without a look at dpkg's records, which are for its own programs
    }
    std::error_code error;
    const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing sets them
    return of(std::getenv("APPIMAGE"), std::getenv("APPDIR"), executable, "/var/lib/dpkg/info");
}

UpdateTarget targetOf(const UpdateBuild& build, const Installation& installation) {
    return {build.version,    std::string(build::machine), build.channel, gnu_get_libc_version(), {},
            installation.kind};
}

bool canInstall(const UpdateBuild& build, const Installation& installation) {
    return !build.distribution && !build.keys.empty() && installation.kind != PackageKind::other;
}

}  // namespace kzq
