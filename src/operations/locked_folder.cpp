#include "operations/locked_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kzq {

Descriptor lockedFolder(const std::filesystem::path& path, int how) {
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat open {};
    struct stat named {};
    if (!folder || ::flock(folder.get(), how) != 0 || ::fstat(folder.get(), &open) != 0 ||
        ::lstat(path.c_str(), &named) != 0 || open.st_ino != named.st_ino || open.st_dev != named.st_dev ||
        open.st_uid != ::geteuid()) {
        return {};
    }
    return folder;
}

}  // namespace kzq
