#include "updates/app_image.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "platform/descriptor.h"
#include "platform/plain_file.h"
#include "words/words.h"

namespace kzq {

namespace {

/// Links `file` under a second name, or copies it if the file system has no hard links. On the disk before it
/// is renamed: the program in place may go right after.
std::error_code linkOrCopy(const std::filesystem::path& file, const std::filesystem::path& name) {
    std::error_code error;
    if (::link(file.c_str(), name.c_str()) != 0 && std::filesystem::copy_file(file, name, error)) {
        const Descriptor copy(::open(name.c_str(), O_RDONLY | O_CLOEXEC));
        if (!copy || ::fsync(copy.get()) != 0) {
            error.assign(errno, std::generic_category());
        }
    }
    return error;
}

std::filesystem::path previousOf(const std::filesystem::path& appImage) {
    return appImage.string() + ".previous";
}

/// Those of the AppImage in place; its owner can start it.
Result<std::filesystem::perms> usablePermissions(const std::filesystem::path& appImage) {
    std::error_code error;
    const auto permissions = std::filesystem::status(appImage, error).permissions();
    if (error) {
        return Trouble{Trouble::Kind::file, english("the program no longer exists"), error.value()};
    }
    return (permissions | std::filesystem::perms::owner_exec) & std::filesystem::perms::mask;
}

}  // namespace

bool isAppImage(ByteView file) {
    constexpr std::array<std::uint8_t, 4> program{0x7F, 'E', 'L', 'F'};
    constexpr std::array<std::uint8_t, 3> mark{'A', 'I', 2};
    constexpr std::size_t markAt = 8;
    return file.size() > markAt + mark.size() && std::ranges::equal(file.first(program.size()), program) &&
           std::ranges::equal(file.subspan(markAt, mark.size()), mark);
}

Result<void> keepPrevious(const std::filesystem::path& appImage) {
    const std::filesystem::path previous = previousOf(appImage);
    const std::filesystem::path draft = previous.string() + ".part";
    if (!isPlainFile(appImage) || !isPlaceForFile(previous) || !isPlaceForFile(draft)) {
        return Trouble{Trouble::Kind::file,
                       english("the path of the program or of its previous version is not a file")};
    }
    ::unlink(draft.c_str());
    auto error = linkOrCopy(appImage, draft);
    if (!error) {
        std::filesystem::rename(draft, previous, error);
    }
    // Also after the rename, which does nothing if both are names of one file.
    ::unlink(draft.c_str());
    if (error) {
        return Trouble{Trouble::Kind::file, english("the previous version cannot be kept"), error.value()};
    }
    return {};
}

Result<void> sealAppImage(const std::filesystem::path& appImage, UpdateDownload& download) {
    const auto usable = usablePermissions(appImage);
    return usable ? download.seal(*usable) : usable.error();
}

Result<void> replaceAppImage(const std::filesystem::path& appImage, UpdateDownload& download) {
    const auto usable = usablePermissions(appImage);
    if (!usable) {
        return usable.error();
    }
    return keepPrevious(appImage).and_then([&] { return download.place(*usable); });
}

void startOthersUnpackedAs(const std::filesystem::path& program) {
    const auto isUnpacked = [](const std::filesystem::path& folder) {
        return folder.native().starts_with("appimage_extracted_");
    };
    if (std::ranges::any_of(program, isUnpacked)) {
        ::setenv("APPIMAGE_EXTRACT_AND_RUN", "1", 1);  // NOLINT(concurrency-mt-unsafe)
    }
}

}  // namespace kzq
