#include "platform/free_space.h"

#include <sys/statvfs.h>

#include <system_error>

#include "words/words.h"

namespace kzq {

namespace {

std::string withTenth(std::uint64_t tenths) {
    return words("%1.%2", tenths / 10, tenths % 10);
}

}  // namespace

std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder) {
    std::error_code error;
    auto place = std::filesystem::absolute(folder, error);
    if (!std::filesystem::exists(place, error)) {
        place = (place.has_filename() ? place : place.parent_path()).parent_path();
    }
    struct statvfs facts {};
    // Some file systems do not count: they say that they have no blocks at all.
    if (::statvfs(place.c_str(), &facts) != 0 || facts.f_blocks == 0) {
        return std::nullopt;
    }
    return std::uint64_t{facts.f_bavail} * facts.f_frsize;
}

std::optional<Trouble> tooLittleSpace(const std::filesystem::path& folder, std::uint64_t bytes,
                                      const FreeSpace& freeSpace) {
    const auto free = freeSpace(folder);
    if (!free || *free >= bytes) {
        return std::nullopt;
    }
    return Trouble{Trouble::Kind::diskFull, folder.string(), 0,
                   words("%1 are needed and %2 are free", sizeText(bytes), sizeText(*free))};
}

std::string sizeText(std::uint64_t bytes) {
    constexpr std::uint64_t kilo = 1'000;
    constexpr std::uint64_t mega = 1'000'000;
    if (bytes < kilo) {
        return words("%1 B", bytes);
    }
    if (bytes < mega) {
        return words("%1 kB", withTenth(bytes * 10 / kilo));
    }
    return words("%1 MB", withTenth(bytes * 10 / mega));
}

}  // namespace kzq
