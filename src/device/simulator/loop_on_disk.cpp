#include "device/simulator/loop_on_disk.h"

#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "platform/plain_file.h"

namespace kzq::simulator {

namespace {

constexpr std::size_t blockSize = 1 << 16;

bool areSame(const struct stat& one, const struct stat& other) {
    return one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

}  // namespace

LoopOnDisk::LoopOnDisk(std::filesystem::path path, Descriptor file, const ByteRange& audio)
    : path_(std::move(path)), file_(std::move(file)), audio_(audio), opened_(facts()) {}

bool LoopOnDisk::read(std::size_t offset, std::span<std::uint8_t> into) {
    while (!into.empty()) {
        const bool there = offset >= blockStart_ && offset < blockStart_ + block_.size();
        if (!there && !fetch(offset)) {
            log(LogCategory::simulator, "cannot read " + path_.string() + ", or it has changed");
            return false;
        }
        const auto ready = ByteView(block_).subspan(offset - blockStart_);
        const auto taken = ready.first(std::min(ready.size(), into.size()));
        std::ranges::copy(taken, into.begin());
        into = into.subspan(taken.size());
        offset += taken.size();
    }
    return true;
}

/// Checks the file after reading, so that nothing written before goes unnoticed.
bool LoopOnDisk::fetch(std::size_t offset) {
    block_.resize(std::min(blockSize, size() - std::min(offset, size())));
    blockStart_ = offset;
    const auto count = readAt(file_.get(), block_, audio_.location + offset);
    if (block_.empty() || count.value_or(0) != block_.size() || !areSame(facts(), opened_)) {
        block_.clear();
        return false;
    }
    return true;
}

struct stat LoopOnDisk::facts() const {
    struct stat facts {};
    ::fstat(file_.get(), &facts);
    return facts;
}

}  // namespace kzq::simulator
