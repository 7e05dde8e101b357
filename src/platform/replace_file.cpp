#include "platform/replace_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/draft.h"
#include "platform/plain_file.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

constexpr time_t oldAge = 24L * 60 * 60;

bool isOldDraft(const std::filesystem::path& path) {
    struct stat status {};
    return isHiddenName(path.filename().string()) && ::lstat(path.c_str(), &status) == 0 &&
           S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           status.st_mtime < ::time(nullptr) - oldAge;
}

}  // namespace

Result<void> replaceFile(const std::filesystem::path& folder, const std::string& name, ByteView bytes) {
    if (!isPlaceForFile(folder / name)) {
        return Trouble{Trouble::Kind::file, Draft::placing, EEXIST};
    }
    Draft draft(folder, Draft::Road::renameNoReplace);
    // If the name becomes a link just now, the rename replaces the link and leaves its target alone.
    auto replaced = draft.open()
                        .and_then([&] { return draft.write(bytes); })
                        .and_then([&] { return draft.sync(); })
                        .and_then([&] { return draft.replace(name); });
    if (replaced) {
        draft.syncFolder();
    }
    return replaced;
}

void removeOldDrafts(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (isOldDraft(entry->path())) {
            ::unlink(entry->path().c_str());
        }
    }
}

}  // namespace kzq
