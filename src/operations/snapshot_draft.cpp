#include "operations/snapshot_draft.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <system_error>
#include <utility>

#include "loops/facts.h"
#include "operations/locked_folder.h"
#include "operations/loop_file.h"
#include "platform/log.h"
#include "platform/new_file.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr int mostFolders = 10;  ///< that others took away at once

/// Whether it is a file that cannot be written to, from now on. Some file systems ignore the wish.
bool protect(const fs::path& file) {
    constexpr mode_t writing = 0222;
    constexpr mode_t permissions = 07777;
    struct stat now {};
    if (::lstat(file.c_str(), &now) != 0 || !S_ISREG(now.st_mode)) {
        return false;
    }
    return (now.st_mode & writing) == 0 ||
           (::chmod(file.c_str(), now.st_mode & permissions & ~writing) == 0 &&
            ::lstat(file.c_str(), &now) == 0 && (now.st_mode & writing) == 0);
}

}  // namespace

std::vector<fs::path> SnapshotDraft::Source::filesOf(SlotNumber slot, const std::string& sha256) const {
    std::vector<fs::path> files;
    for (const auto& [at, entry] : index.loops) {
        if (entry.sha256 == sha256) {
            files.insert(at == slot ? files.begin() : files.end(), folder.fileOf(entry));
        }
    }
    return files;
}

Result<std::unique_ptr<SnapshotDraft>> SnapshotDraft::make(const Generations& generations,
                                                           const std::string& stamp, Shared shared) {
    std::error_code error;
    const bool isFirst = !fs::exists(generations.path(), error);
    auto path = generations.makeUnfinished(stamp);
    // Waits for a run that looks at it just now. Until it is locked, that may take it for one that was left.
    auto lock = path ? lockedFolder(*path, LOCK_EX) : Descriptor();
    for (int more = 1; path && !lock && !fs::exists(*path, error) && more < mostFolders; ++more) {
        path = generations.makeUnfinished(stamp);
        lock = path ? lockedFolder(*path, LOCK_EX) : Descriptor();
    }
    if (!path) {
        return std::move(path.error());
    }
    std::unique_ptr<SnapshotDraft> draft(new SnapshotDraft(generations, std::move(*path), std::move(lock)));
    draft->isFirst_ = isFirst;
    draft->findSources(shared);
    draft->links_ = draft->canLink();
    return draft;
}

SnapshotDraft::~SnapshotDraft() {
    if (!finished_ && folder_.removeIfEmpty() && isFirst_) {
        ::rmdir(generations_.path().c_str());
    }
}

void SnapshotDraft::findSources(Shared shared) {
    for (auto& each : generations_.unfinished()) {
        auto lock =
            each.folder.path() == path() ? Descriptor() : lockedFolder(each.folder.path(), LOCK_EX | LOCK_NB);
        if (!lock || each.folder.removeIfEmpty()) {
            continue;
        }
        // One that was killed just before it got its date has the complete index.
        auto index = each.folder.isComplete() ? each.folder.index() : each.folder.partialIndex();
        if (index) {
            sources_.push_back({each.folder, std::move(*index), std::move(lock)});
        }
    }
    if (auto index = BackupFolder(generations_.path()).partialIndex()) {
        sources_.push_back({BackupFolder(generations_.path()), std::move(*index)});
    }
    auto earlier = generations_.snapshots();
    for (; !earlier.empty(); earlier.pop_back()) {
        const auto& folder = earlier.back().folder;
        if (auto index = folder.index()) {
            sources_.push_back({folder, std::move(*index)});
            if (shared == Shared::newest) {
                break;
            }
            continue;
        }
        log(LogCategory::files, folder.path().string() + ": not used, as its index cannot be read");
    }
}

/// Whether the files of the others can get a second name here.
bool SnapshotDraft::canLink() const {
    const auto probe = path() / hiddenName();
    for (const auto& source : sources_) {
        for (const auto& [slot, entry] : source.index.loops) {
            const auto file = source.folder.fileOf(entry);
            std::error_code error;
            if (!source.interrupted() && fs::is_regular_file(fs::symlink_status(file, error))) {
                const bool linked = protect(file) && ::link(file.c_str(), probe.c_str()) == 0;
                return linked && ::unlink(probe.c_str()) == 0;
            }
        }
    }
    return false;
}

bool SnapshotDraft::wasSaved(SlotNumber slot, const Loop& loop) const {
    return std::ranges::any_of(sources_, [&](const Source& source) {
        const auto entry = source.index.loops.find(slot);
        std::error_code error;
        return source.interrupted() && entry != source.index.loops.end() && entry->second.describes(loop) &&
               fs::is_regular_file(source.folder.fileOf(entry->second), error);
    });
}

bool SnapshotDraft::isFree(SlotNumber slot, const Loop& loop) const {
    return wasSaved(slot, loop) || (links_ && std::ranges::any_of(sources_, [&](const Source& source) {
                                        return !source.interrupted() && source.index.hasLengthOf(slot, loop);
                                    }));
}

Result<void> SnapshotDraft::list(SlotNumber slot, const BackupEntry& entry) {
    index_.loops.insert_or_assign(slot, entry);
    auto written = folder_.writePartialIndex(index_);
    if (!written) {
        index_.loops.erase(slot);
    }
    return written;
}

std::optional<SnapshotDraft::Way> SnapshotDraft::take(SlotNumber slot, const BackupEntry& entry,
                                                      const Bytes& image) const {
    const auto target = folder_.fileOf(entry);
    for (const auto& source : sources_) {
        for (const auto& file : source.filesOf(slot, entry.sha256)) {
            if (!isFileOf(file, image)) {
                continue;
            }
            if (source.interrupted() && ::rename(file.c_str(), target.c_str()) == 0) {
                return Way::moved;
            }
            // Whatever stands in the way of a link, the loop can still be written.
            if (!source.interrupted() && protect(file) && ::link(file.c_str(), target.c_str()) == 0) {
                return Way::linked;
            }
        }
    }
    return std::nullopt;
}

Result<SnapshotDraft::Way> SnapshotDraft::add(SlotNumber slot, const Loop& loop, const Bytes& image) {
    const auto name = loopName(slot);
    BackupEntry entry{name + ".wav", loop.samples, loop.tempo, loop.channel, audioDigest(image)};
    // Listed before it comes, so that there is no moment at which no index names it.
    if (const auto listed = list(slot, entry); !listed) {
        return listed.error();
    }
    auto way = take(slot, entry, image);
    if (!way) {
        const auto file = writeNewFile(path(), name, ".wav", image);
        if (!file) {
            index_.loops.erase(slot);
            static_cast<void>(folder_.writePartialIndex(index_));  // which may fail for the same reason
            return file.error();
        }
        if (const auto taken = file->filename().string(); taken != entry.file) {
            entry.file = taken;
            if (const auto listed = list(slot, entry); !listed) {
                return listed.error();
            }
        }
        way = Way::written;
    }
    protect(folder_.fileOf(entry));  // where that cannot be, it never gets a second name
    return *way;
}

Result<Snapshot> SnapshotDraft::finish(const std::string& firmware, const std::string& stamp) {
    index_.firmware = firmware;
    auto done = folder_.finish(index_).and_then([&] { return generations_.name(path(), stamp); });
    finished_ = done.has_value();
    if (done) {
        for (const auto& source : sources_) {
            if (source.interrupted()) {
                source.folder.removeIfEmpty();
            }
        }
    }
    return done;
}

}  // namespace kzq
