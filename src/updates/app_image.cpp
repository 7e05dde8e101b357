#include "updates/app_image.h"

#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/plain_file.h"

namespace kzq {

namespace {

/// Links `file` under a second name, or copies it if the file system has no hard links.
std::error_code linkOrCopy(const std::filesystem::path& file, const std::filesystem::path& name) {
    std::error_code error;
    if (::link(file.c_str(), name.c_str()) != 0) {
        std::filesystem::copy_file(file, name, error);
    }
    return error;
}

}  // namespace

Result<void> keepPrevious(const std::filesystem::path& appImage) {
    const std::filesystem::path previous = appImage.string() + ".previous";
    const std::filesystem::path draft = previous.string() + ".part";
    if (!isPlainFile(appImage) || !isPlaceForFile(previous) || !isPlaceForFile(draft)) {
        return Trouble{Trouble::Kind::file,
                       "the path of the program or of its previous version is not a file"};
    }
    ::unlink(draft.c_str());
    auto error = linkOrCopy(appImage, draft);
    if (!error) {
        std::filesystem::rename(draft, previous, error);
    }
    // Also after the rename, which does nothing if both are names of one file.
    ::unlink(draft.c_str());
    if (error) {
        return Trouble{Trouble::Kind::file, "the previous version cannot be kept", error.value()};
    }
    return {};
}

Result<void> replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download) {
    std::error_code error;
    const auto permissions = std::filesystem::status(appImage, error).permissions();
    if (error) {
        return Trouble{Trouble::Kind::file, "the program no longer exists", error.value()};
    }
    const auto usable = (permissions | std::filesystem::perms::owner_exec) & std::filesystem::perms::mask;
    return keepPrevious(appImage).and_then([&] { return download.place(usable); });
}

}  // namespace kzq
