#include "ctl/commands/folder_check.h"

#include <cerrno>
#include <system_error>

#include "platform/draft.h"

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
    const auto opened = Draft(missing ? parentOf(folder) : folder).open();
    return opened ? std::nullopt
                  : std::optional(Trouble{Trouble::Kind::folder, folder.string(), opened.error().error,
                                          missing ? "folder" : "files"});
}

void makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directory(folder,
                                      error);  // a failure shows, with its reason, when a file is written
}

}  // namespace kzq::ctl
