#include "updates/app_image.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "updates/replace_file.h"

namespace kzq {

bool keepPrevious(const std::filesystem::path& appImage, std::string& reason) {
    const std::filesystem::path previous = appImage.string() + ".previous";
    if (!isPlainFile(appImage) || !isPlaceForFile(previous)) {
        reason = "something that is not a file is in the place of the program or of its previous version";
        return false;
    }
    ::unlink(previous.c_str());
    if (::link(appImage.c_str(), previous.c_str()) == 0) {
        return true;
    }
    // Some file systems know no second names.
    std::error_code error;
    std::filesystem::copy_file(appImage, previous, error);
    if (error) {
        reason = "the previous version cannot be kept: " + error.message();
        ::unlink(previous.c_str());
        return false;
    }
    return true;
}

bool replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download, std::string& reason) {
    std::error_code error;
    const auto permissions = std::filesystem::status(appImage, error).permissions();
    if (error) {
        reason = "the program is not there any more: " + error.message();
        return false;
    }
    if (!keepPrevious(appImage, reason)) {
        return false;
    }
    const auto usable = (permissions | std::filesystem::perms::owner_exec) & std::filesystem::perms::mask;
    if (!download.place(usable)) {
        reason = download.reason();
        return false;
    }
    return true;
}

}  // namespace kzq
