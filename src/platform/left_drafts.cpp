#include "platform/left_drafts.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <ctime>
#include <functional>
#include <system_error>

#include "platform/descriptor.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

constexpr time_t oldAge = 24L * 60 * 60;

using Look = std::function<void(const std::filesystem::path& draft, const struct stat& facts)>;

void forEachDraft(const std::filesystem::path& folder, const Look& look) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const auto& draft = entry->path();
        struct stat facts {};
        if (isHiddenName(draft.filename().string()) && ::lstat(draft.c_str(), &facts) == 0 &&
            S_ISREG(facts.st_mode) && facts.st_uid == ::geteuid()) {
            look(draft, facts);
        }
    }
}

/// Whether another computer may write there, whose locks are not seen here.
bool mayBeShared(const std::filesystem::path& folder) {
    // as statfs(2) gives them: NFS, SMB in two versions, FUSE, 9p
    constexpr std::array<std::uint32_t, 5> shared{0x6969, 0xFF534D42, 0xFE534D42, 0x65735546, 0x01021997};
    struct statfs facts {};
    return ::statfs(folder.c_str(), &facts) != 0 ||
           std::ranges::find(shared, static_cast<std::uint32_t>(facts.f_type)) != shared.end();
}

}  // namespace

void removeDeadDrafts(const std::filesystem::path& folder) {
    if (mayBeShared(folder)) {
        removeOldDrafts(folder);
        return;
    }
    forEachDraft(folder, [](const auto& draft, const auto& /*facts*/) {
        const Descriptor file(::open(draft.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            ::unlink(draft.c_str());  // still locked: who has made it just now then takes another name
        }
    });
}

void removeOldDrafts(const std::filesystem::path& folder) {
    forEachDraft(folder, [](const auto& draft, const struct stat& facts) {
        if (facts.st_mtime < ::time(nullptr) - oldAge) {
            ::unlink(draft.c_str());
        }
    });
}

}  // namespace kzq
