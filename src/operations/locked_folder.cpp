#include "operations/locked_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/plain_file.h"

namespace kzq {

Descriptor lockedFolder(const std::filesystem::path& path, int how) {
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder || ::flock(folder.get(), how) != 0 || !isStillNamed(AT_FDCWD, path, folder.get()) ||
        ::fstat(folder.get(), &facts) != 0 || facts.st_uid != ::geteuid()) {
        return {};
    }
    return folder;
}

}  // namespace kzq
