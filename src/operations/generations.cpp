#include "operations/generations.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/draft.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view pattern = "dddd-dd-dd dd-dd-dd";
constexpr std::string_view unfinishedStart = "unfinished ";
constexpr unsigned mostOfOneSecond = 10'000;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A dated name's place among the others; for another name a number of 0.
struct Place {
    std::string stamp;
    unsigned number = 0;  ///< 1 without a number

    auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr): compared with 0
};

Place placeOf(std::string_view name) {
    const auto stamp = name.substr(0, std::min(name.size(), pattern.size()));
    const bool fits = std::ranges::equal(
        stamp, pattern, [](char c, char sample) { return sample == 'd' ? isDigit(c) : c == sample; });
    auto rest = name.substr(stamp.size());
    Place place{std::string(stamp), fits && rest.empty() ? 1U : 0U};
    if (fits && rest.starts_with('-')) {
        rest.remove_prefix(1);
        const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), place.number);
        place.number = end.ec == std::errc() && end.ptr == rest.data() + rest.size() ? place.number : 0;
    }
    return place;
}

std::string nameOf(const Place& place) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "-%02u", place.number);
    return place.stamp + (place.number == 1 ? "" : number.data());
}

Trouble cannotMake(const fs::path& path, int error) {
    return {Trouble::Kind::folder, path.string(), error, "folder"};
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

}  // namespace

std::string localStamp() {
    return stampOf(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now()));
}

std::string stampOf(std::time_t time) {
    std::tm local{};
    ::localtime_r(&time, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%d %H-%M-%S", &local);
    return text.data();
}

bool Generations::isDated(std::string_view name) {
    return placeOf(name).number != 0;
}

/// Sorted; those of unfinished ones without what they start with.
std::vector<std::string> Generations::namesOf(bool unfinished, bool anyKind) const {
    std::vector<std::string> names;
    std::error_code error;
    fs::directory_iterator entry(path_, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        auto name = entry->path().filename().string();
        const bool kind = name.starts_with(unfinishedStart);
        name = kind ? name.substr(unfinishedStart.size()) : name;
        if (kind == unfinished && isDated(name) && (anyKind || isFolder(entry->path()))) {
            names.push_back(std::move(name));
        }
    }
    std::ranges::sort(names, {}, placeOf);
    return names;
}

std::vector<Snapshot> Generations::snapshots() const {
    std::vector<Snapshot> all;
    std::error_code error;
    fs::directory_iterator entry(path_, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto name = entry->path().filename().string();
        if (BackupFolder folder(entry->path());
            folder.isComplete() && !isDated(name) && !name.starts_with(unfinishedStart)) {
            all.push_back({name, folder});
        }
    }
    std::ranges::sort(all, {}, &Snapshot::name);
    if (BackupFolder folder(path_); folder.isComplete()) {
        all.push_back({undated, folder});
    }
    for (auto& name : namesOf(false, false)) {
        all.push_back({name, BackupFolder(path_ / name)});
    }
    return all;
}

std::vector<Snapshot> Generations::unfinished() const {
    std::vector<Snapshot> all;
    for (const auto& stamp : namesOf(true, false)) {
        const auto name = std::string(unfinishedStart) + stamp;
        all.push_back({name, BackupFolder(path_ / name)});
    }
    return all;
}

Result<Snapshot> Generations::find(const std::string& name) const {
    const BackupFolder own(path_);
    if (!name.empty()) {
        const bool plain = name.find('/') == std::string::npos && name != ".." && isFolder(path_ / name);
        return plain ? Result<Snapshot>(Snapshot{name, name == undated ? own : BackupFolder(path_ / name)})
                     : Trouble{Trouble::Kind::noBackup, path_.string(), 0, name};
    }
    const auto dated = namesOf(false, false);
    if (!dated.empty()) {
        return Snapshot{dated.back(), BackupFolder(path_ / dated.back())};
    }
    if (own.isComplete()) {
        return Snapshot{undated, own};
    }
    std::error_code error;
    const fs::directory_iterator any(path_, error);
    if (error && error != std::errc::no_such_file_or_directory) {
        return Trouble{Trouble::Kind::unreadable, path_.string(), error.value()};
    }
    const bool begun = !unfinished().empty() || own.partialIndex();
    return Trouble{begun ? Trouble::Kind::backupIncomplete : Trouble::Kind::noBackup, path_.string()};
}

Result<fs::path> Generations::makeUnfinished(const std::string& stamp) const {
    if (std::error_code error; fs::create_directory(path_, error)) {
        const auto made = path_.has_filename() ? path_ : path_.parent_path();
        syncFolder(made.has_parent_path() ? made.parent_path() : ".");
    } else if (error) {
        return cannotMake(path_, error.value());
    }
    for (unsigned number = 1; number <= mostOfOneSecond; ++number) {
        auto folder = path_ / (std::string(unfinishedStart) + nameOf({stamp, number}));
        std::error_code error;
        if (fs::create_directory(folder, error)) {
            return folder;
        }
        if (error) {
            return cannotMake(folder, error.value());
        }
    }
    return cannotMake(path_, EEXIST);
}

Result<Snapshot> Generations::name(const fs::path& unfinished, const std::string& stamp) const {
    int error = EEXIST;
    for (unsigned attempt = 0; attempt < mostOfOneSecond && (error == EEXIST || error == ENOTEMPTY);
         ++attempt) {
        Place place{stamp, 1};
        if (const auto taken = namesOf(false, true); !taken.empty() && place <= placeOf(taken.back())) {
            place = placeOf(taken.back());
            if (++place.number == 0) {  // the highest there is: any other name would sort before it
                break;
            }
        }
        const auto folder = path_ / nameOf(place);
        // A folder never takes the place of a file, or of a folder with something in it.
        if (::rename(unfinished.c_str(), folder.c_str()) == 0) {
            syncFolder(path_);
            return Snapshot{nameOf(place), BackupFolder(folder)};
        }
        error = errno;
    }
    return Trouble{Trouble::Kind::file, Draft::placing, error};
}

}  // namespace kzq
