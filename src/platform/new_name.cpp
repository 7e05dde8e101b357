#include "platform/new_name.h"

#include <linux/fs.h>

#include <cerrno>
#include <cstdio>

namespace kzq {

Descriptor openNew(const std::filesystem::path& path, mode_t mode, int access, int folder) {
    return Descriptor(::openat(folder, path.c_str(), O_CREAT | O_EXCL | O_CLOEXEC | access, mode));
}

int renameToNew(const std::filesystem::path& from, const std::filesystem::path& to, int folder) {
    return ::renameat2(folder, from.c_str(), folder, to.c_str(), RENAME_NOREPLACE) == 0 ? 0 : errno;
}

bool isNoSuchCall(int error) {
    return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

}  // namespace kzq
