#include "platform/new_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/log.h"

namespace kzq {
namespace {

constexpr std::size_t longestFileName = 255;
constexpr unsigned highestSuffix = 100'000;

/// Gives the draft the first free name and returns it.
Result<std::string> placeUnderFreeName(Draft& draft, std::string_view name, std::string_view extension) {
    for (unsigned number = 1; number <= highestSuffix; ++number) {
        std::string suffix = number == 1 ? "" : "-" + std::to_string(number);
        suffix += extension;
        const std::string free = fileNameComponent(name, suffix.size()) + suffix;
        const auto placed = draft.place(free);
        if (placed) {
            return free;
        }
        if (placed.error().error != EEXIST) {
            return placed.error();
        }
    }
    return Trouble{Trouble::Kind::file, Draft::placing, EEXIST};
}

Result<std::filesystem::path> write(const std::filesystem::path& folder, std::string_view name,
                                    std::string_view extension, ByteView bytes, Draft::Road road) {
    Draft draft(folder, road);
    return draft.open()
        .and_then([&] { return draft.write(bytes); })
        .and_then([&] { return draft.sync(); })
        .and_then([&] { return placeUnderFreeName(draft, name, extension); })
        .and_then([&](const std::string& placed) -> Result<std::filesystem::path> {
            draft.syncFolder();
            return folder / placed;
        });
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

Result<std::filesystem::path> writeNewFile(const std::filesystem::path& folder, std::string_view name,
                                           std::string_view extension, ByteView bytes, Draft::Road first) {
    auto file = write(folder, name, extension, bytes, first);
    if (!file && first == Draft::Road::unnamed && file.error().where == Draft::placing &&
        file.error().error != EEXIST) {
        file = write(folder, name, extension, bytes, Draft::Road::renameNoReplace);
    }
    if (!file) {
        log(LogCategory::files,
            file.error().where + ": " + std::generic_category().message(file.error().error));
    }
    return file;
}

}  // namespace kzq
