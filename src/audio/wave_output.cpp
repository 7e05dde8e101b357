#include "audio/wave_output.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace kzq {
namespace {

constexpr std::uint32_t stereo = 2;

}  // namespace

WaveOutput::WaveOutput(std::filesystem::path path, Draft::Road first)
    : path_(std::move(path)), first_(first) {}

Result<void> WaveOutput::open() {
    std::error_code error;
    if (std::filesystem::exists(std::filesystem::symlink_status(path_, error))) {
        return Trouble{Trouble::Kind::file, "create", EEXIST};
    }
    sampleBytes_ = 0;
    hastened_ = 0;
    draft_.emplace(path_.parent_path(), first_);
    return draft_->open();
}

Result<void> WaveOutput::write(ByteView samples) {
    auto written = draft_->writeAt(samples, waveHeaderSize + sampleBytes_);
    if (written) {
        sampleBytes_ += samples.size();
    }
    return written;
}

void WaveOutput::hasten() {
    constexpr std::uint64_t step = 8 << 20;
    if (sampleBytes_ >= hastened_ + step) {
        hastened_ = sampleBytes_;
        draft_->hasten();
    }
}

Result<void> WaveOutput::finish(bool sync) {
    return draft_->writeAt(waveHeader(static_cast<std::uint32_t>(sampleBytes_), stereo), 0)
        .and_then([&] { return sync ? draft_->sync() : Result<void>(); })
        .and_then([&] { return draft_->place(path_.filename()); })
        .map([&] {
            if (sync) {
                draft_->syncFolder();
            }
        });
}

}  // namespace kzq
