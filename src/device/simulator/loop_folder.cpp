#include "device/simulator/loop_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "loops/facts.h"
#include "platform/log.h"
#include "platform/write_all.h"

namespace kzq::simulator {

namespace fs = std::filesystem;

namespace {

constexpr std::uintmax_t largestFile = waveHeaderSize + capacityFrames * frameBytes + 4096;

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

std::optional<StoredLoop> readLoop(const fs::path& file, const LoopReader& convert, std::string& error) {
    std::error_code code;
    const std::uintmax_t size = fs::is_regular_file(file, code) ? fs::file_size(file, code) : 0;
    if (code || size == 0) {
        error = file.string() + " is not a file with a loop in it.";
        return std::nullopt;
    }
    Bytes image;
    if (size <= largestFile) {
        std::ifstream stream(file, std::ios::binary);
        image.assign(std::istreambuf_iterator<char>(stream), {});
        if (image.size() != size) {
            error = file.string() + " cannot be read.";
            return std::nullopt;
        }
    }
    auto audio = isPerfectWave(image, 2) ? lpcm(image) : std::nullopt;
    if (audio && !audio->empty() && audio->size() % frameBytes == 0) {
        return StoredLoop{std::move(*audio)};
    }
    if (!convert) {
        error = file.string() +
                " is not a 24-bit stereo WAV file of 44,100 Hz with a plain header. Convert it "
                "with \"kzq7306ctl convert\".";
        return std::nullopt;
    }
    audio = convert(file, error);
    return audio ? std::optional(StoredLoop{std::move(*audio)}) : std::nullopt;
}

bool syncFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    const bool synced = ::fsync(descriptor) == 0;
    return ::close(descriptor) == 0 && synced;
}

/// Writes `bytes` to a new file and renames it to `file`.
bool replaceFile(const fs::path& file, ByteView bytes) {
    const fs::path temporary = file.parent_path() / ("." + file.filename().string() + ".part");
    const int descriptor =
        ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0666);
    if (descriptor < 0) {
        return false;
    }
    bool whole = writeAll(descriptor, bytes) == 0 && ::fsync(descriptor) == 0;
    whole = ::close(descriptor) == 0 && whole;
    std::error_code code;
    if (whole) {
        fs::rename(temporary, file, code);
    }
    if (whole && !code) {
        return syncFolder(file.parent_path());
    }
    fs::remove(temporary, code);
    return false;
}

}  // namespace

std::optional<PedalMemory> LoopFolder::load(std::string& error) {
    std::error_code code;
    if (fs::status(folder_, code).type() == fs::file_type::not_found) {
        error = "There is no folder \"" + folder_.string() + "\". Create it, or check the name.";
        return std::nullopt;
    }
    auto entries = fs::directory_iterator(folder_, code);
    if (code) {
        error = "The folder " + folder_.string() + " cannot be read: " + code.message() + ".";
        return std::nullopt;
    }
    PedalMemory memory;
    files_ = {};
    std::uint64_t frames = 0;
    for (const fs::directory_entry& entry : entries) {
        if (!loadFile(entry.path(), memory, frames, error)) {
            return std::nullopt;
        }
    }
    if (frames > capacityFrames) {
        error = "The loops in " + folder_.string() + " are longer than the pedal's 24 minutes.";
        return std::nullopt;
    }
    return memory;
}

bool LoopFolder::loadFile(const fs::path& file, PedalMemory& memory, std::uint64_t& frames,
                          std::string& error) {
    const auto slot = slotFromName(file.filename().string());
    if (!slot) {
        if (file.extension() == ".wav") {
            log(LogCategory::simulator, "no slot has that name: " + file.string());
        }
        return true;
    }
    fs::path& known = files_.at(*slot - 1);
    if (!known.empty()) {
        error = "Two files for slot " + std::to_string(*slot) + ": " + known.string() + " and " +
                file.string() + ".";
        return false;
    }
    known = file;
    auto& loop = memory.at(*slot - 1);
    loop = readLoop(file, convert_, error);
    if (loop) {
        frames += loop->audio.size() / frameBytes;
    }
    return loop.has_value();
}

bool LoopFolder::store(std::uint8_t address, const StoredLoop* loop) {
    fs::path& file = files_.at(address);
    if (file.empty()) {
        file = folder_ / ("Loop " + std::to_string(address + 1) + ".wav");
    }
    bool stored = false;
    if (loop != nullptr) {
        const auto image = wave(loop->audio, 2);
        stored = image && replaceFile(file, *image);
    } else {
        std::error_code code;
        fs::remove(file, code);
        stored = !code && syncFolder(folder_);
    }
    if (!stored) {
        log(LogCategory::simulator, "cannot store " + file.string());
    }
    return stored;
}

}  // namespace kzq::simulator
