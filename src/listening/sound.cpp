#include "listening/sound.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "platform/new_name.h"
#include "platform/plain_file.h"
#include "platform/unique_name.h"
#include "platform/write_all.h"

namespace kzq {

namespace {

constexpr std::uint32_t stereo = 2;
constexpr mode_t forThisUser = 0600;

Trouble diskTrouble(const std::filesystem::path& path, int error) {
    return {.kind = Trouble::Kind::file, .where = path.string(), .error = error};
}

}  // namespace

Sound::Sound(std::filesystem::path path, Descriptor file, Frames length)
    : path_(std::move(path)), file_(std::move(file)), length_(length), finder_(length) {}

Result<std::shared_ptr<Sound>> Sound::ofFile(const std::filesystem::path& wave) {
    auto sound = withoutPeaks(wave);
    const auto peaks = sound ? peaksOf(wave) : std::nullopt;
    if (sound && !peaks) {
        return Trouble{Trouble::Kind::notAudio, wave.string()};
    }
    if (sound) {
        (*sound)->publish(*peaks);
    }
    return sound;
}

Result<std::shared_ptr<Sound>> Sound::withoutPeaks(const std::filesystem::path& wave) {
    auto file = openPlainFile(wave, Links::followed);
    if (!file) {
        return file.error();
    }
    if (!hasWaveHeader(*file)) {
        return Trouble{Trouble::Kind::notAudio, wave.string()};
    }
    const auto length = Frames::ofBytes(file->size - waveHeaderSize);
    std::shared_ptr<Sound> sound(new Sound(wave, std::move(file->file), length));
    sound->there_ = length.count;
    return sound;
}

Result<std::shared_ptr<Sound>> Sound::arriving(const std::filesystem::path& folder, SlotNumber slot,
                                               Frames length) {
    auto path = folder / (loopName(slot) + "-" + randomDigits(6) + ".wav");
    auto file = openNew(path, forThisUser, O_RDWR);
    if (!file) {
        return diskTrouble(path, errno);
    }
    const auto header = waveHeader(static_cast<std::uint32_t>(length.bytes()), stereo);
    if (const int error = writeAllAt(file.get(), header, 0); error != 0) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        return diskTrouble(path, error);
    }
    return std::shared_ptr<Sound>(new Sound(std::move(path), std::move(file), length));
}

std::shared_ptr<const Peaks> Sound::peaks() const {
    const std::lock_guard guard(mutex_);
    return peaks_;
}

void Sound::publish(const Peaks& peaks) {
    auto copy = std::make_shared<const Peaks>(peaks);
    const std::lock_guard guard(mutex_);
    peaks_.swap(copy);
}

void Sound::read(Frames from, std::span<std::uint8_t> audio) const {
    const auto count = readAt(file_.get(), audio, waveHeaderSize + from.bytes()).value_or(0);
    std::ranges::fill(audio.subspan(count), std::uint8_t{0});
}

void Sound::add(ByteView audio) {
    audio = audio.first(std::min<std::uint64_t>(audio.size(), length_.bytes() - bytes_));
    if (audio.empty() || trouble_) {
        return;
    }
    if (const int error = writeAllAt(file_.get(), audio, waveHeaderSize + bytes_); error != 0) {
        trouble_ = diskTrouble(path_, error);
        return;
    }
    bytes_ += audio.size();
    there_ = Frames::ofBytes(bytes_).count;
    const auto known = finder_.peaks().known;
    finder_.add(audio);
    if (finder_.peaks().known != known) {
        publish(finder_.peaks());
    }
}

Result<void> Sound::finish(const std::optional<Trouble>& otherwise) {
    if (whole() && !otherwise) {
        return {};
    }
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    return otherwise.value_or(trouble_.value_or(Trouble{Trouble::Kind::changedWhileRead}));
}

}  // namespace kzq
