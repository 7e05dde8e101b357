#include "device/simulator/loop_folder.h"

#include <charconv>
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
    constexpr std::string_view prefix = "Loop ";
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

Result<StoredLoop> readLoop(const fs::path& file, const LoopReader& convert) {
    const auto image = readPlainFile(file, largestFile, Links::followed);
    if (!image && image.error().kind == Kind::unreadable) {
        return Trouble{Kind::file, file.string(), image.error().error};
    }
    if (image ? image->empty() : image.error().kind == Kind::notAFile) {
        return Trouble{Kind::noLoop, file.string()};
    }
    auto audio = image && isPerfectWave(*image, 2) ? lpcm(*image) : std::nullopt;
    if (audio && !audio->empty() && audio->size() % frameBytes == 0) {
        return StoredLoop{std::move(*audio)};
    }
    if (!convert) {
        return Trouble{Kind::otherFormat, file.string()};
    }
    return convert(file).map([](Bytes converted) { return StoredLoop{std::move(converted)}; });
}

/// Writes `bytes` to a new file and renames it to `file`.
Result<void> replaceFile(const fs::path& file, ByteView bytes) {
    Draft draft(file.parent_path(), Draft::Road::renameNoReplace);
    auto replaced = draft.open()
                        .and_then([&] { return draft.write(bytes); })
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

Result<void> put(const fs::path& file, const StoredLoop& loop) {
    const auto image = wave(loop.audio, 2);
    if (!image) {
        return Trouble{Kind::outOfMemory};
    }
    return replaceFile(file, *image);
}

}  // namespace

Result<PedalMemory> LoopFolder::load() {
    std::error_code code;
    auto entries = fs::directory_iterator(folder_, code);
    if (code) {
        return Trouble{Kind::folder, folder_.string(), code.value()};
    }
    PedalMemory memory;
    files_ = {};
    std::uint64_t frames = 0;
    for (const fs::directory_entry& entry : entries) {
        if (const auto loaded = loadFile(entry.path(), memory, frames); !loaded) {
            return loaded.error();
        }
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
        frames += loop.audio.size() / frameBytes;
        memory.at(*slot - 1) = std::move(loop);
    });
}

bool LoopFolder::store(std::uint8_t address, const StoredLoop* loop) {
    fs::path& file = files_.at(address);
    if (file.empty()) {
        file = folder_ / ("Loop " + std::to_string(address + 1) + ".wav");
    }
    const auto stored = loop != nullptr ? put(file, *loop) : removeFile(file);
    if (!stored) {
        log(LogCategory::simulator,
            "cannot store " + file.string() + ": " + std::generic_category().message(stored.error().error));
    }
    return stored.has_value();
}

}  // namespace kzq::simulator
