#include "platform/new_file.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <system_error>

#include "platform/log.h"

namespace kzq {
namespace {

constexpr std::size_t longestFileName = 255;
constexpr unsigned highestSuffix = 100'000;
constexpr std::size_t mostContinued = 3;  ///< bytes of a UTF-8 character after its first

/// Takes the first name that is free, which `place` says: a failure with EEXIST means that it is not.
Result<std::string> freeName(std::string_view name, std::string_view extension,
                             const std::function<Result<void>(const std::string&)>& place) {
    for (unsigned number = 1; number <= highestSuffix; ++number) {
        std::string suffix = number == 1 ? "" : "-" + std::to_string(number);
        suffix += extension;
        const std::string free = fileNameComponent(name, suffix.size()) + suffix;
        const auto placed = place(free);
        if (placed) {
            return free;
        }
        if (placed.error().error != EEXIST) {
            return placed.error();
        }
    }
    return Trouble{Trouble::Kind::file, Draft::placing, EEXIST};
}

using Place = std::function<Result<std::string>(Draft& draft)>;

Result<std::filesystem::path> write(const std::filesystem::path& folder, const Place& place, ByteView bytes,
                                    Draft::Road road) {
    Draft draft(folder, road);
    return draft.open()
        .and_then([&] { return draft.write(bytes); })
        .and_then([&] { return draft.sync(); })
        .and_then([&] { return place(draft); })
        .and_then([&](const std::string& placed) -> Result<std::filesystem::path> {
            draft.syncFolder();
            return folder / placed;
        });
}

/// On other roads as well, if the first one turns out to be closed only at its end.
Result<std::filesystem::path> writeOnAnyRoad(const std::filesystem::path& folder, const Place& place,
                                             ByteView bytes, Draft::Road first) {
    auto file = write(folder, place, bytes, first);
    if (!file && first == Draft::Road::unnamed && file.error().where == Draft::placing &&
        file.error().error != EEXIST) {
        file = write(folder, place, bytes, Draft::Road::renameNoReplace);
    }
    if (!file) {
        log(LogCategory::files,
            file.error().where + ": " + std::generic_category().message(file.error().error));
    }
    return file;
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
    // What goes on for longer is no character.
    while (end > 0 && room - end < mostContinued && isContinuation(component[end])) {
        --end;
    }
    component.resize(end);
    return component;
}

Result<std::filesystem::path> writeNewFile(const std::filesystem::path& folder, std::string_view name,
                                           std::string_view extension, ByteView bytes, Draft::Road first) {
    return writeOnAnyRoad(
        folder,
        [&](Draft& draft) {
            return freeName(name, extension, [&draft](const std::string& free) { return draft.place(free); });
        },
        bytes, first);
}

Result<std::filesystem::path> copyToNewFile(const std::filesystem::path& from,
                                            const std::filesystem::path& folder, std::string_view name,
                                            std::string_view extension) {
    const auto copy = [&](const std::string& free) -> Result<void> {
        std::error_code error;
        std::filesystem::copy_file(from, folder / free, error);
        return error ? Result<void>(Trouble{Trouble::Kind::file, "copy", error.value()}) : Result<void>();
    };
    return freeName(name, extension, copy).map([&](const std::string& free) { return folder / free; });
}

Result<void> writeFileNamed(const std::filesystem::path& file, ByteView bytes) {
    const auto name = file.filename().string();
    return writeOnAnyRoad(
               file.has_parent_path() ? file.parent_path() : ".",
               [&name](Draft& draft) { return draft.place(name).map([&name] { return std::string(name); }); },
               bytes, Draft::Road::unnamed)
        .map([](const auto& /*place*/) {});
}

}  // namespace kzq
