#include "operations/snapshot_draft.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ranges>
#include <system_error>
#include <utility>

#include "loops/facts.h"
#include "operations/loop_file.h"
#include "platform/log.h"
#include "platform/new_file.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr const char* probeName = "link";

/// This user's folder, locked as long as the answer lives; none if another run has it, or has renamed it
/// meanwhile, or where folders cannot be locked.
Descriptor lockedFolder(const fs::path& path) {
    Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat open {};
    struct stat named {};
    if (!folder || ::flock(folder.get(), LOCK_EX | LOCK_NB) != 0 || ::fstat(folder.get(), &open) != 0 ||
        ::lstat(path.c_str(), &named) != 0 || open.st_ino != named.st_ino || open.st_dev != named.st_dev ||
        open.st_uid != ::geteuid()) {
        return {};
    }
    return folder;
}

void protect(const fs::path& file) {
    using fs::perms;
    std::error_code ignored;
    fs::permissions(file, perms::owner_write | perms::group_write | perms::others_write,
                    fs::perm_options::remove, ignored);
}

}  // namespace

const BackupEntry* SnapshotDraft::Source::find(const std::string& sha256) const {
    const auto found = std::ranges::find(std::views::values(index.loops), sha256, &BackupEntry::sha256);
    return found.base() == index.loops.end() ? nullptr : &*found;
}

Result<std::unique_ptr<SnapshotDraft>> SnapshotDraft::make(const Generations& generations,
                                                           const std::string& stamp) {
    std::error_code error;
    const bool isFirst = !fs::exists(generations.path(), error);
    auto path = generations.makeUnfinished(stamp);
    if (!path) {
        return std::move(path.error());
    }
    auto lock = lockedFolder(*path);
    std::unique_ptr<SnapshotDraft> draft(new SnapshotDraft(generations, std::move(*path), std::move(lock)));
    draft->isFirst_ = isFirst;
    draft->findSources();
    draft->links_ = draft->canLink();
    return draft;
}

SnapshotDraft::~SnapshotDraft() {
    if (!finished_ && folder_.removeIfEmpty() && isFirst_) {
        ::rmdir(generations_.path().c_str());
    }
}

void SnapshotDraft::findSources() {
    for (auto& each : generations_.unfinished()) {
        auto lock = each.folder.path() == path() ? Descriptor() : lockedFolder(each.folder.path());
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
    for (const auto& each : generations_.snapshots() | std::views::reverse) {
        if (auto index = each.folder.index()) {
            sources_.push_back({each.folder, std::move(*index)});
            break;
        }
        log(LogCategory::files, each.folder.path().string() + ": not used, as its index cannot be read");
    }
}

/// Whether the files of the others can get a second name here.
bool SnapshotDraft::canLink() const {
    const auto probe = path() / probeName;
    for (const auto& source : sources_) {
        if (!source.interrupted() && !source.index.loops.empty()) {
            const auto file = source.folder.fileOf(source.index.loops.begin()->second);
            const bool linked = ::link(file.c_str(), probe.c_str()) == 0;
            return linked && ::unlink(probe.c_str()) == 0;
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
                                        return source.index.hasLengthOf(slot, loop);
                                    }));
}

std::optional<SnapshotDraft::Way> SnapshotDraft::take(const BackupEntry& entry, const Bytes& image) const {
    const auto target = folder_.fileOf(entry);
    for (const auto& source : sources_) {
        const auto* const known = source.find(entry.sha256);
        if (known == nullptr || !isFileOf(source.folder.fileOf(*known), image)) {
            continue;
        }
        const auto file = source.folder.fileOf(*known);
        if (source.interrupted() && ::rename(file.c_str(), target.c_str()) == 0) {
            return Way::moved;
        }
        // Whatever stands in the way of a link, the loop can still be written.
        if (!source.interrupted() && ::link(file.c_str(), target.c_str()) == 0) {
            return Way::linked;
        }
    }
    return std::nullopt;
}

Result<SnapshotDraft::Way> SnapshotDraft::add(SlotNumber slot, const Loop& loop, const Bytes& image) {
    const auto name = loopName(slot);
    const BackupEntry entry{name + ".wav", loop.samples, loop.tempo, loop.channel, audioDigest(image)};
    auto way = take(entry, image);
    if (!way) {
        if (const auto file = writeNewFile(path(), name, ".wav", image); !file) {
            return file.error();
        }
        way = Way::written;
    }
    protect(folder_.fileOf(entry));
    index_.loops.emplace(slot, entry);
    const auto listed = folder_.writePartialIndex(index_);
    return listed ? Result<Way>(*way) : listed.error();
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
