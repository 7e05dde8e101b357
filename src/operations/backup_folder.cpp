#include "operations/backup_folder.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "operations/loop_file.h"
#include "platform/new_file.h"
#include "platform/plain_file.h"
#include "platform/replace_file.h"
#include "platform/unique_name.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr const char* indexName = "backup.json";
constexpr const char* partialName = "backup.partial.json";
constexpr std::uint64_t longestIndex = 1 << 20;

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

bool isIndexOrDraft(const std::string& name) {
    return name == indexName || name == partialName || isHiddenName(name);
}

bool isLoopName(const std::string& name) {
    return std::ranges::any_of(allSlots(), [&](SlotNumber slot) { return name == loopName(slot) + ".wav"; });
}

ByteView bytesOf(const std::string& text) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): characters as bytes
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

bool BackupFolder::isComplete() const {
    return isThere(indexFile());
}

fs::path BackupFolder::indexFile() const {
    return path_ / indexName;
}

Result<BackupIndex> BackupFolder::index() const {
    return read(indexName);
}

Result<BackupIndex> BackupFolder::partialIndex() const {
    return read(partialName);
}

Result<BackupIndex> BackupFolder::read(const char* name) const {
    if (!isThere(path_ / name)) {
        return Trouble{Trouble::Kind::noBackup, path_.string()};
    }
    const auto bytes = readPlainFile(path_ / name, longestIndex, Links::followed);
    auto index =
        bytes ? indexFromText(std::string(bytes->begin(), bytes->end())) : Trouble{Trouble::Kind::unreadable};
    if (!index) {
        index.error().where = (path_ / name).string();
    }
    return index;
}

bool BackupFolder::isIntact(const BackupEntry& entry) const {
    return isLoopFile(fileOf(entry), entry.samples, entry.sha256);
}

Result<void> BackupFolder::writePartialIndex(const BackupIndex& index) const {
    return replaceFile(path_, partialName, bytesOf(indexText(index)));
}

Result<void> BackupFolder::finish(const BackupIndex& index) const {
    const auto file = writeNewFile(path_, "backup", ".json", bytesOf(indexText(index)));
    if (!file) {
        return file.error();
    }
    std::error_code error;
    if (file->filename() != indexName) {
        fs::remove(*file, error);
        return Trouble{Trouble::Kind::file, Draft::placing, EEXIST};
    }
    fs::remove(path_ / partialName, error);
    return {};
}

Result<void> BackupFolder::replaceIndex(const BackupIndex& index) const {
    return replaceFile(path_, indexName, bytesOf(indexText(index)));
}

bool BackupFolder::removeIfEmpty() const {
    std::vector<fs::path> own;
    std::error_code error;
    fs::directory_iterator entry(path_, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto name = entry->path().filename().string();
        if (!isIndexOrDraft(name)) {
            return false;
        }
        own.push_back(entry->path());
    }
    const auto known = partialIndex();
    if (error || (!known && known.error().kind != Trouble::Kind::noBackup)) {
        return false;  // what is not seen to be ours stays
    }
    for (const auto& file : own) {
        ::unlink(file.c_str());
    }
    return ::rmdir(path_.c_str()) == 0;
}

void BackupFolder::remove() const {
    std::vector<fs::path> own;
    std::error_code error;
    for (fs::directory_iterator entry(path_, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        const auto name = entry->path().filename().string();
        if (isIndexOrDraft(name) || isLoopName(name)) {
            own.push_back(entry->path());
        }
    }
    for (const auto& file : own) {
        ::unlink(file.c_str());
    }
    ::rmdir(path_.c_str());
}

}  // namespace kzq
