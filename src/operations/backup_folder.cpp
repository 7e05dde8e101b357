#include "operations/backup_folder.h"

#include <cerrno>
#include <system_error>

#include "loops/capacity.h"
#include "loops/facts.h"
#include "operations/loop_file.h"
#include "platform/new_file.h"
#include "platform/plain_file.h"
#include "platform/replace_file.h"

namespace kzq {
namespace {

namespace fs = std::filesystem;

constexpr const char* indexName = "backup.json";
constexpr const char* partialName = "backup.partial.json";
constexpr std::uint64_t longestIndex = 1 << 20;
constexpr std::uint64_t longestLoopFile = waveHeaderSize + capacityFrames * frameBytes;

bool isThere(const fs::path& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

ByteView bytesOf(const std::string& text) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): characters as bytes
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

void BackupFolder::make() const {
    std::error_code error;
    fs::create_directory(path_, error);
}

bool BackupFolder::isComplete() const {
    return isThere(path_ / indexName);
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

std::optional<Bytes> BackupFolder::loop(const BackupEntry& entry) const {
    auto image = readPlainFile(path_ / entry.file, longestLoopFile, Links::followed);
    if (!image || !isLoopFile(*image) || framesOf(*image) != entry.samples ||
        audioDigest(*image) != entry.sha256) {
        return std::nullopt;
    }
    return std::move(*image);
}

Result<void> BackupFolder::addLoop(SlotNumber slot, const Bytes& image, BackupEntry& entry) const {
    const std::string name = loopName(slot);
    entry.sha256 = audioDigest(image);
    entry.file = name + ".wav";
    if (loop(entry)) {
        return {};
    }
    return writeNewFile(path_, name, ".wav", image).map([&](const fs::path& file) {
        entry.file = file.filename().string();
    });
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

}  // namespace kzq
