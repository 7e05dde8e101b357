#include "ctl/backup_folder.h"

#include <cerrno>
#include <system_error>

#include "ctl/audio_file.h"
#include "ctl/file_trouble.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "platform/new_file.h"
#include "platform/plain_file.h"
#include "platform/replace_file.h"

namespace kzq::ctl {
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

bool BackupFolder::isComplete() const {
    return isThere(path_ / indexName);
}

std::optional<BackupIndex> BackupFolder::index(std::optional<Explanation>& problem) const {
    return read(indexName, problem);
}

std::optional<BackupIndex> BackupFolder::partialIndex(std::optional<Explanation>& problem) const {
    return read(partialName, problem);
}

std::optional<BackupIndex> BackupFolder::read(const char* name, std::optional<Explanation>& problem) const {
    if (!isThere(path_ / name)) {
        return std::nullopt;
    }
    std::string reason = "cannot be read.";
    const auto bytes = readPlainFile(path_ / name, longestIndex, Links::followed);
    auto index = bytes ? indexFromText(std::string(bytes->begin(), bytes->end()), reason)
                       : std::optional<BackupIndex>();
    if (!index) {
        problem = {ExitCode::fileError, "\"" + (path_ / name).string() + "\" " + reason};
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

std::optional<Explanation> BackupFolder::addLoop(std::uint8_t slot, const Bytes& image,
                                                 BackupEntry& entry) const {
    const std::string name = loopName(slot);
    entry.sha256 = audioDigest(image);
    entry.file = name + ".wav";
    if (loop(entry)) {
        return std::nullopt;
    }
    const auto file = writeNewFile(path_, name, ".wav", image);
    if (!file) {
        return notWritten(name, file.error().error);
    }
    entry.file = file->filename().string();
    return std::nullopt;
}

std::optional<Explanation> BackupFolder::writePartialIndex(const BackupIndex& index) const {
    const auto written = replaceFile(path_, partialName, bytesOf(indexText(index)));
    return written ? std::nullopt : std::optional(notWritten("The list of loops", written.error().error));
}

std::optional<Explanation> BackupFolder::finish(const BackupIndex& index) const {
    const auto file = writeNewFile(path_, "backup", ".json", bytesOf(indexText(index)));
    if (!file) {
        return notWritten("The index", file.error().error);
    }
    std::error_code error;
    if (file->filename() != indexName) {
        fs::remove(*file, error);
        return notWritten("The index", EEXIST);
    }
    fs::remove(path_ / partialName, error);
    return std::nullopt;
}

Explanation BackupFolder::notWritten(const std::string& name, int error) const {
    return {ExitCode::fileError,
            name + " was not saved: could not write to " + path_.string() + ": " + fileTrouble(error)};
}

}  // namespace kzq::ctl
