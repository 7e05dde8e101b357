#include "ctl/commands/folder_check.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace kzq::ctl {

namespace {

std::filesystem::path parentOf(const std::filesystem::path& folder) {
    std::error_code error;
    const auto whole = std::filesystem::absolute(folder, error);  // empty where the working folder is gone
    return whole.has_filename() ? whole.parent_path() : whole.parent_path().parent_path();
}

}  // namespace

std::optional<Trouble> folderTrouble(const std::filesystem::path& folder) {
    std::error_code error;
    const auto type = std::filesystem::status(folder, error).type();
    const bool missing = type == std::filesystem::file_type::not_found;
    if (missing && !std::filesystem::is_directory(parentOf(folder), error)) {
        return Trouble{Trouble::Kind::folder, folder.string(), ENOENT};
    }
    if (error) {
        return Trouble{Trouble::Kind::folder, folder.string(), error.value()};
    }
    if (!missing && type != std::filesystem::file_type::directory) {
        return Trouble{Trouble::Kind::folder, folder.string(), ENOTDIR};
    }
    std::string probe = (missing ? parentOf(folder) : folder) / ".kzq7306-XXXXXX";
    const int file = ::mkstemp(probe.data());
    if (file < 0) {
        return Trouble{Trouble::Kind::folder, folder.string(), errno, missing ? "folder" : "files"};
    }
    ::close(file);
    ::unlink(probe.c_str());
    return std::nullopt;
}

void makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directory(folder,
                                      error);  // a failure shows, with its reason, when a file is written
}

}  // namespace kzq::ctl
