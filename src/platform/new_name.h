#pragma once

#include <fcntl.h>

#include <filesystem>

#include "platform/descriptor.h"

namespace kzq {

// Names for what is new; what has such a name already stays. Relative paths start at `folder`, an open one.
// Any thread.

/// A new file, open; or none, with errno set: EEXIST if there is anything of that name, even a link to
/// nothing.
Descriptor openNew(const std::filesystem::path& path, mode_t mode, int access = O_WRONLY,
                   int folder = AT_FDCWD);

/// Renames a file or a folder. 0, or an errno value: EEXIST if there is anything at `to`.
int renameToNew(const std::filesystem::path& from, const std::filesystem::path& to, int folder = AT_FDCWD);
/// Whether an errno value says that there is no such call here: file systems do so in different ways.
bool isNoSuchCall(int error);

}  // namespace kzq
