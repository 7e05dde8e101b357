#include "operations/kept_copies.h"

#include <sys/file.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <system_error>
#include <utility>

#include "operations/locked_folder.h"
#include "platform/left_drafts.h"
#include "platform/log.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr const char* onName = "kept";
constexpr const char* offName = "kept-off";
constexpr const char* replaceWord = "replace";

bool isFolderThere(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

Trouble cannotUse(const fs::path& path, int error) {
    return {Trouble::Kind::folder, path.string(), error, "folder"};
}

/// The newest first.
std::vector<Snapshot> datedIn(const fs::path& folder) {
    auto all = Generations(folder).snapshots();
    std::erase_if(all, [](const Snapshot& each) {  // others may be the user's own
        return !Generations::isDated(each.name) || !each.folder.isComplete();
    });
    std::ranges::reverse(all);
    return all;
}

/// Counts each file once, however many names it has.
class Size {
  public:
    std::uint64_t add(const Snapshot& snapshot) {
        const auto index = snapshot.folder.index();
        for (const auto& [slot, entry] : index ? index->loops : decltype(index->loops)()) {
            struct stat file {};
            if (::lstat(snapshot.folder.fileOf(entry).c_str(), &file) == 0 &&
                seen_.emplace(file.st_dev, file.st_ino).second) {
                sum_ += static_cast<std::uint64_t>(file.st_size);
            }
        }
        return sum_;
    }

  private:
    std::set<std::pair<dev_t, ino_t>> seen_;
    std::uint64_t sum_ = 0;
};

/// Those that no run works in.
void removeUnfinished(const Generations& all) {
    for (const auto& each : all.unfinished()) {
        if (const auto lock = lockedFolder(each.folder.path(), LOCK_EX | LOCK_NB)) {
            each.folder.remove();
        }
    }
}

}  // namespace

fs::path KeptCopies::folder() const {
    const auto off = parent_ / offName;
    return !isFolderThere(parent_ / onName) && isFolderThere(off) ? off : parent_ / onName;
}

bool KeptCopies::on() const {
    return !parent_.empty() && folder().filename() == onName;
}

Result<void> KeptCopies::turn(bool on) const {
    if (on == this->on()) {
        return {};
    }
    const auto from = folder();
    const auto to = parent_ / (on ? onName : offName);
    std::error_code error;
    if (parent_.empty()) {
        error = std::make_error_code(std::errc::no_such_file_or_directory);
    } else if (isFolderThere(from)) {
        fs::rename(from, to, error);
    } else {
        fs::create_directories(to, error);
    }
    return error ? Result<void>(cannotUse(to, error.value())) : Result<void>();
}

std::vector<KeptCopy> KeptCopies::list() const {
    using Fate = KeptCopy::Fate;
    std::vector<KeptCopy> copies;
    std::set<std::pair<SlotNumber, std::string>> listed;
    for (const auto& each : datedIn(folder())) {
        const auto index = each.folder.index();
        for (const auto& [slot, entry] : index ? index->loops : decltype(index->loops)()) {
            const auto file = each.folder.fileOf(entry);
            std::error_code error;
            if (!fs::is_regular_file(file, error) ||
                (!listed.emplace(slot, entry.sha256).second && !entry.gone)) {
                continue;
            }
            const auto fate = !entry.gone                    ? Fate::copied
                              : index->before == replaceWord ? Fate::replaced
                                                             : Fate::erased;
            copies.push_back({file, slot, {entry.samples}, each.name, fate});
        }
    }
    return copies;
}

void KeptCopies::noteGone(const std::string& stamp, const std::vector<SlotNumber>& slots) const {
    const auto place = folder();
    const auto lock = lockedFolder(place, LOCK_EX);  // nobody trims it meanwhile
    const BackupFolder copies(place / stamp);
    auto index = copies.index();
    if (slots.empty() || !index) {
        return;
    }
    for (const auto slot : slots) {
        if (const auto entry = index->loops.find(slot); entry != index->loops.end()) {
            entry->second.gone = true;
        }
    }
    if (const auto written = copies.replaceIndex(*index); !written) {
        log(LogCategory::files, copies.path().string() + ": what became of its loops could not be noted");
    }
}

std::uint64_t KeptCopies::size() const {
    Size size;
    std::uint64_t sum = 0;
    for (const auto& each : datedIn(folder())) {
        sum = size.add(each);
    }
    return sum;
}

Result<Generations> KeptCopies::open() const {
    std::error_code error;
    fs::create_directories(parent_, error);
    if (error) {
        return cannotUse(parent_, error.value());
    }
    return Generations(parent_ / onName);
}

void KeptCopies::tidy() const {
    const auto place = folder();
    const auto lock = lockedFolder(place, LOCK_EX);
    const Generations all(place);
    if (!lock) {
        return;
    }
    const auto dated = datedIn(place);
    Size size;
    bool full = false;
    for (const auto& each : dated) {
        removeDeadDrafts(each.folder.path());  // of an index in which something was noted
        full = full || (size.add(each) > room_ && each.name != dated.front().name);
        if (full) {  // renamed first, so that it goes as a whole even if this is interrupted
            std::error_code error;
            fs::rename(each.folder.path(), place / ("unfinished " + each.name), error);
        }
    }
    removeUnfinished(all);
}

}  // namespace kzq
