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

std::optional<Explanation> folderObstacle(const std::filesystem::path& folder) {
    const std::string name = "\"" + folder.string() + "\"";
    std::error_code error;
    const auto type = std::filesystem::status(folder, error).type();
    const bool missing = type == std::filesystem::file_type::not_found;
    if (missing && !std::filesystem::is_directory(parentOf(folder), error)) {
        return Explanation{ExitCode::fileError,
                           "The folder " + name + " does not exist, and neither does its parent folder."};
    }
    if (error) {
        return Explanation{ExitCode::fileError, "The folder " + name + ": " + error.message() + "."};
    }
    if (!missing && type != std::filesystem::file_type::directory) {
        return Explanation{ExitCode::fileError, name + " is not a folder. Choose a folder for the files."};
    }
    std::string probe = (missing ? parentOf(folder) : folder) / ".kzq7306-XXXXXX";
    const int file = ::mkstemp(probe.data());
    if (file < 0) {
        const std::string reason = std::generic_category().message(errno);
        return Explanation{ExitCode::fileError,
                           missing ? "The folder " + name + " cannot be created: " + reason + "."
                                   : "No files can be created in the folder " + name + ": " + reason +
                                         ". Choose a folder that you can write to."};
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
