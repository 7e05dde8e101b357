#include "platform/new_file.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/log.h"
#include "platform/unique_name.h"
#include "platform/write_all.h"

namespace kzq {
namespace {

constexpr std::size_t longestFileName = 255;
constexpr unsigned highestSuffix = 100'000;
constexpr mode_t newFileMode = 0666;
constexpr const char* placing = "put into place";

/// The file while it is being written: without a name, or under a hidden one that is removed unless the file
/// was renamed.
struct Draft : Fixed {
    explicit Draft(int folderDescriptor) : folder(folderDescriptor), file(-1) {}
    ~Draft() {
        if (!name.empty()) {
            ::unlinkat(folder, name.c_str(), 0);
        }
    }

    int folder;
    Descriptor file;
    std::string name;  ///< empty for a file without a name
};

/// 0, or an errno value.
int openNamed(Draft& draft) {
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const std::string name = hiddenName();
        draft.file = Descriptor(::openat(draft.folder, name.c_str(),
                                         O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, newFileMode));
        if (draft.file) {
            draft.name = name;
            return 0;
        }
        if (errno != EEXIST && errno != EINTR) {
            return errno;
        }
    }
    return EEXIST;
}

int openDraft(Draft& draft, NewFileRoad& road) {
    if (road == NewFileRoad::unnamed) {
        draft.file = Descriptor(::openat(draft.folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, newFileMode));
        if (draft.file) {
            return 0;
        }
        // File systems without such files fail in different ways, so after any failure the next way is
        // tried; a real error (no permission, no space) shows there again.
        road = NewFileRoad::renameNoReplace;
    }
    return openNamed(draft);
}

int syncFile(int file) {
    int result = 0;
    do {
        result = ::fsync(file);
    } while (result != 0 && errno == EINTR);
    return result == 0 ? 0 : errno;
}

int linkUnnamed(const Draft& draft, const std::string& name) {
    const std::string self = "/proc/self/fd/" + std::to_string(draft.file.get());
    return ::linkat(AT_FDCWD, self.c_str(), draft.folder, name.c_str(), AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

int renameNoReplace(Draft& draft, const std::string& name) {
    if (::renameat2(draft.folder, draft.name.c_str(), draft.folder, name.c_str(), RENAME_NOREPLACE) != 0) {
        return errno;
    }
    draft.name.clear();
    return 0;
}

int renameOverReserved(Draft& draft, const std::string& name) {
    const Descriptor reserved(::openat(draft.folder, name.c_str(),
                                       O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, newFileMode));
    if (!reserved) {
        return errno;
    }
    if (::renameat(draft.folder, draft.name.c_str(), draft.folder, name.c_str()) != 0) {
        const int error = errno;
        ::unlinkat(draft.folder, name.c_str(), 0);
        return error;
    }
    draft.name.clear();
    return 0;
}

int give(Draft& draft, const std::string& name, NewFileRoad road) {
    switch (road) {
        case NewFileRoad::unnamed:
            return linkUnnamed(draft, name);
        case NewFileRoad::renameNoReplace:
            return renameNoReplace(draft, name);
        case NewFileRoad::link:
            return ::linkat(draft.folder, draft.name.c_str(), draft.folder, name.c_str(), 0) == 0 ? 0 : errno;
        case NewFileRoad::reserve:
            return renameOverReserved(draft, name);
    }
    return EINVAL;
}

/// Whether the result of one way means that the next should be tried.
bool isMissing(int error) {
    constexpr std::array<int, 6> answers = {EINVAL, ENOSYS, ENOTSUP, EPERM, EMLINK, EXDEV};
    return std::find(answers.begin(), answers.end(), error) != answers.end();
}

/// Gives the draft the first free name. 0, or an errno value.
int putIntoPlace(Draft& draft, std::string_view name, std::string_view extension, NewFileRoad road,
                 std::string& placed) {
    for (unsigned number = 1; number <= highestSuffix; ++number) {
        std::string suffix = number == 1 ? "" : "-" + std::to_string(number);
        suffix += extension;
        placed = fileNameComponent(name, suffix.size()) + suffix;
        int error = give(draft, placed, road);
        while (isMissing(error) && (road == NewFileRoad::renameNoReplace || road == NewFileRoad::link)) {
            road = road == NewFileRoad::renameNoReplace ? NewFileRoad::link : NewFileRoad::reserve;
            error = give(draft, placed, road);
        }
        if (error != EEXIST) {
            return error;
        }
    }
    return EEXIST;
}

/// Makes the name durable. The file is complete and in place, so a failure is only logged.
void syncFolder(int folder) {
    const Descriptor readable(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int error = readable ? syncFile(readable.get()) : errno;
    if (error == 0 || error == EINVAL) {
        return;
    }
    log(LogCategory::files, "folder not synced: " + std::generic_category().message(error));
}

NewFile failed(int error, const char* step) {
    log(LogCategory::files, std::string(step) + ": " + std::generic_category().message(error));
    return NewFile{{}, error, step};
}

NewFile write(int folderDescriptor, const std::filesystem::path& folder, std::string_view name,
              std::string_view extension, std::span<const std::uint8_t> bytes, NewFileRoad road) {
    Draft draft(folderDescriptor);
    if (const int error = openDraft(draft, road)) {
        return failed(error, "create");
    }
    if (const int error = writeAll(draft.file.get(), bytes)) {
        return failed(error, "write");
    }
    if (const int error = syncFile(draft.file.get())) {
        return failed(error, "sync");
    }
    std::string placed;
    if (const int error = putIntoPlace(draft, name, extension, road, placed)) {
        return failed(error, placing);
    }
    return NewFile{folder / placed, 0, {}};
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string fileNameComponent(std::string_view name, std::size_t reserved) {
    std::string component(name);
    std::replace_if(
        component.begin(), component.end(), [](char c) { return c == '/' || c == '\0'; }, '-');
    if (component.empty() || component == "." || component == "..") {
        component.insert(0, "-");
    }
    const std::size_t room = longestFileName - std::min(reserved, longestFileName - 1);
    if (component.size() <= room) {
        return component;
    }
    std::size_t end = room;
    while (end > 0 && isContinuation(component[end])) {
        --end;
    }
    component.resize(end);
    return component;
}

NewFile writeNewFile(const std::filesystem::path& folder, std::string_view name, std::string_view extension,
                     std::span<const std::uint8_t> bytes, NewFileRoad first) {
    const Descriptor opened(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!opened) {
        return failed(errno, "create");
    }
    NewFile result = write(opened.get(), folder, name, extension, bytes, first);
    if (first == NewFileRoad::unnamed && result.step == placing && result.error != EEXIST) {
        result = write(opened.get(), folder, name, extension, bytes, NewFileRoad::renameNoReplace);
    }
    if (result) {
        syncFolder(opened.get());
    }
    return result;
}

}  // namespace kzq
