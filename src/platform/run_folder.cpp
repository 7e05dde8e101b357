#include "platform/run_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/log.h"
#include "platform/plain_file.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

constexpr std::string_view namePrefix = "kzq7306-run-";
constexpr const char* lockName = ".lock";
constexpr mode_t folderMode = 0700;
constexpr mode_t lockMode = 0600;
constexpr int attempts = 100;

std::string freshName() {
    return std::string(namePrefix) + randomDigits(12);
}

/// The lock of the folder at `path`, held; none if somebody else has it or the folder is not this user's.
/// `exclusive` asks for a lock file that did not exist yet.
Descriptor lockFolder(const std::filesystem::path& path, int exclusive) {
    const Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder || ::fstat(folder.get(), &facts) != 0 || facts.st_uid != ::geteuid()) {
        return {};
    }
    Descriptor lock(::openat(folder.get(), lockName,
                             O_CREAT | exclusive | O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, lockMode));
    // Another run may have swept the folder between its creation and its locking.
    if (!lock || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 ||
        !isStillNamed(folder.get(), lockName, lock.get())) {
        return {};
    }
    return lock;
}

void removeAll(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::remove_all(path, error);
    if (error) {
        log(LogCategory::files, "cannot remove " + path.string() + ": " + error.message());
    }
}

}  // namespace

RunFolder& RunFolder::ofThisRun() {
    // Never destroyed: blocked workers may still use it while the process ends.
    static auto* const folder = new RunFolder(usualParent());  // NOLINT(cppcoreguidelines-owning-memory)
    return *folder;
}

std::filesystem::path RunFolder::usualParent() {
    const char* const chosen = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe): nobody sets it
    std::error_code error;
    if (chosen != nullptr && *chosen == '/' && std::filesystem::is_directory(chosen, error)) {
        return chosen;
    }
    return "/var/tmp";
}

RunFolder::RunFolder(std::filesystem::path parent) : parent_(std::move(parent)) {}

RunFolder::~RunFolder() {
    remove();
}

std::optional<std::filesystem::path> RunFolder::path() {
    const std::lock_guard guard(mutex_);
    if (removed_) {
        return std::nullopt;
    }
    // The system may have cleaned away the folder of a long run.
    if (std::error_code error; !path_.empty() && std::filesystem::is_directory(path_, error)) {
        return path_;
    }
    return make();
}

std::optional<std::filesystem::path> RunFolder::make() {
    int error = EEXIST;
    for (int attempt = 0; attempt < attempts && error == EEXIST; ++attempt) {
        const std::filesystem::path candidate = parent_ / freshName();
        if (::mkdir(candidate.c_str(), folderMode) != 0) {
            error = errno;
            continue;
        }
        lock_ = lockFolder(candidate, O_EXCL);
        if (lock_) {
            path_ = candidate;
            return path_;
        }
        removeAll(candidate);  // with its lock file, where files cannot be locked
    }
    log(LogCategory::files, "cannot create a folder for temporary files in " + parent_.string() + ": " +
                                std::generic_category().message(error));
    return std::nullopt;
}

void RunFolder::remove() {
    const std::lock_guard guard(mutex_);
    removed_ = true;
    if (path_.empty()) {
        return;
    }
    removeAll(path_);
    lock_.close();
    path_.clear();
}

void RunFolder::sweep() const {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(parent_, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::filesystem::path& candidate = entry->path();
        if (!candidate.filename().string().starts_with(namePrefix)) {
            continue;
        }
        if (const Descriptor lock = lockFolder(candidate, 0)) {
            removeAll(candidate);
        }
    }
}

}  // namespace kzq
