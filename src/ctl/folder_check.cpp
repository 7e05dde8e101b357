#include "ctl/folder_check.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace kzq::ctl {

std::optional<Explanation> folderObstacle(const std::filesystem::path& folder) {
    const std::string name = "\"" + folder.string() + "\"";
    std::error_code error;
    const auto type = std::filesystem::status(folder, error).type();
    if (type == std::filesystem::file_type::not_found) {
        return Explanation{ExitCode::fileError,
                           "The folder " + name + " does not exist. Create it, or choose another one."};
    }
    if (error) {
        return Explanation{ExitCode::fileError, "The folder " + name + ": " + error.message() + "."};
    }
    if (type != std::filesystem::file_type::directory) {
        return Explanation{ExitCode::fileError, name + " is not a folder. Choose a folder for the files."};
    }
    std::string probe = folder / ".kzq7306-XXXXXX";
    const int file = ::mkstemp(probe.data());
    if (file < 0) {
        const std::string reason = std::generic_category().message(errno);
        return Explanation{ExitCode::fileError, "No files can be made in the folder " + name + ": " + reason +
                                                    ". Choose a folder that you may write to."};
    }
    ::close(file);
    ::unlink(probe.c_str());
    return std::nullopt;
}

}  // namespace kzq::ctl
