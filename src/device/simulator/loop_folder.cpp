#include "device/simulator/loop_folder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "loops/facts.h"
#include "platform/draft.h"
#include "platform/log.h"
#include "platform/plain_file.h"

namespace kzq::simulator {

namespace fs = std::filesystem;

namespace {

using Kind = Trouble::Kind;

constexpr std::uint64_t largestFile = waveHeaderSize + capacityFrames * frameBytes + 4096;

/// The slot (1 to 20) that a file of this name belongs to.
std::optional<unsigned> slotFromName(std::string_view name) {
    auto prefix = loopName(1);
    prefix.pop_back();  // the number
    constexpr std::string_view suffix = ".wav";
    if (name.starts_with(prefix)) {
        name.remove_prefix(prefix.size());
    }
    if (!name.ends_with(suffix)) {
        return std::nullopt;
    }
    name.remove_suffix(suffix.size());
    unsigned slot = 0;
    const auto [stop, error] = std::from_chars(name.data(), name.data() + name.size(), slot);
    const bool isNumber = error == std::errc() && stop == name.data() + name.size() && name.size() <= 2;
    return isNumber && slot >= 1 && slot <= loopSlots ? std::optional(slot) : std::nullopt;
}

/// Where the samples are in a file in the pedal's format; a length of 0 for any other file. One with the
/// usual header is not read: a full folder holds 381 MB.
Result<ByteRange> samplesIn(const PlainFile& file) {
    if (file.size > largestFile) {
        return ByteRange{};
    }
    const auto samples = file.size - std::min<std::uint64_t>(file.size, waveHeaderSize);
    std::array<std::uint8_t, waveHeaderSize> start{};
    const auto count = readAt(file.file.get(), start, 0);
    if (!count) {
        return count.error();
    }
    if (count == start.size() && start == waveHeader(static_cast<std::uint32_t>(samples), 2)) {
        return ByteRange{waveHeaderSize, samples};
    }
    return readPlainFile(file.file.get(), largestFile).map([](const Bytes& image) {
        const auto audio = isPerfectWave(image, 2) ? lpcmIn(image) : std::nullopt;
        return audio ? ByteRange{static_cast<std::uint64_t>(audio->data() - image.data()), audio->size()}
                     : ByteRange{};
    });
}

Result<StoredLoop> readLoop(const fs::path& file, const LoopReader& convert) {
    auto opened = openPlainFile(file, Links::followed);
    if (opened ? opened->size == 0 : opened.error().kind == Kind::notAFile) {
        return Trouble{Kind::noLoop, file.string()};
    }
    const auto samples = opened ? samplesIn(*opened) : Result<ByteRange>(opened.error());
    if (!samples) {
        return Trouble{Kind::file, file.string(), samples.error().error};
    }
    if (samples->length != 0 && samples->length % frameBytes == 0) {
        return StoredLoop{.onDisk = std::make_shared<LoopOnDisk>(file, std::move(opened->file), *samples)};
    }
    if (!convert) {
        return Trouble{Kind::otherFormat, file.string()};
    }
    return convert(file).map([](Bytes converted) { return StoredLoop{std::move(converted)}; });
}

/// Writes `loop` to a new file and renames it to `file`.
Result<void> replaceFile(const fs::path& file, const StoredLoop& loop) {
    const auto header = waveHeader(static_cast<std::uint32_t>(loop.audio.size()), 2);
    Draft draft(file.parent_path(), Draft::Road::renameNoReplace);
    auto replaced = draft.open()
                        .and_then([&] { return draft.write(header); })
                        .and_then([&] { return draft.write(loop.audio); })
                        .and_then([&] { return draft.sync(); })
                        .and_then([&] { return draft.replace(file.filename()); });
    if (replaced) {
        draft.syncFolder();
    }
    return replaced;
}

Result<void> removeFile(const fs::path& file) {
    std::error_code code;
    fs::remove(file, code);
    if (code) {
        return Trouble{Kind::file, "remove", code.value()};
    }
    syncFolder(file.parent_path());
    return {};
}

}  // namespace

Result<PedalMemory> LoopFolder::load() {
    std::error_code code;
    PedalMemory memory;
    files_ = {};
    std::uint64_t frames = 0;
    for (fs::directory_iterator entry(folder_, code), end; !code && entry != end; entry.increment(code)) {
        if (const auto loaded = loadFile(entry->path(), memory, frames); !loaded) {
            return loaded.error();
        }
    }
    if (code) {
        return Trouble{Kind::folder, folder_.string(), code.value()};
    }
    if (frames > capacityFrames) {
        return Trouble{Kind::noRoom, folder_.string()};
    }
    return memory;
}

Result<void> LoopFolder::loadFile(const fs::path& file, PedalMemory& memory, std::uint64_t& frames) {
    const auto slot = slotFromName(file.filename().string());
    if (!slot) {
        if (file.extension() == ".wav") {
            log(LogCategory::simulator, "no slot has that name: " + file.string());
        }
        return {};
    }
    fs::path& known = files_.at(*slot - 1);
    if (!known.empty()) {
        return Trouble{Kind::twoFiles, folder_.string(), 0,
                       std::to_string(*slot) + ": " + known.string() + " and " + file.string()};
    }
    known = file;
    return readLoop(file, convert_).map([&](StoredLoop loop) {
        frames += loop.size() / frameBytes;
        memory.at(*slot - 1) = std::move(loop);
    });
}

bool LoopFolder::store(std::uint8_t address, const StoredLoop* loop) {
    fs::path& file = files_.at(address);
    if (file.empty()) {
        file = folder_ / (loopName(address + 1U) + ".wav");
    }
    const auto stored = loop != nullptr ? replaceFile(file, *loop) : removeFile(file);
    if (!stored) {
        log(LogCategory::simulator,
            "cannot store " + file.string() + ": " + std::generic_category().message(stored.error().error));
    }
    return stored.has_value();
}

}  // namespace kzq::simulator
