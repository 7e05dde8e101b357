#include "operations/listed_backups.h"

#include <sys/stat.h>

#include <algorithm>

namespace kzq {

namespace {

constexpr std::size_t stampLength = 19;

/// Of one with a name of the user's, when its index was written; copying a folder may change that.
std::string stampOf(const Snapshot& snapshot) {
    if (Generations::isDated(snapshot.name)) {
        return snapshot.name.substr(0, stampLength);
    }
    struct stat index {};
    return ::stat(snapshot.folder.indexFile().c_str(), &index) == 0 ? kzq::stampOf(index.st_mtime)
                                                                    : std::string();
}

}  // namespace

std::vector<ListedBackup> listedBackups(const Generations& generations) {
    std::vector<ListedBackup> all;
    for (auto& snapshot : generations.snapshots()) {
        auto stamp = stampOf(snapshot);
        auto index = snapshot.folder.index();
        all.push_back({std::move(snapshot), std::move(stamp), std::move(index)});
    }
    std::ranges::reverse(all);
    std::ranges::stable_sort(all, std::ranges::greater(), &ListedBackup::stamp);
    return all;
}

}  // namespace kzq
