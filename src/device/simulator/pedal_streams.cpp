// Audio and firmware on the bulk pipes.

#include <algorithm>
#include <utility>

#include "device/simulator/simulated_pedal.h"
#include "device/wire.h"
#include "loops/facts.h"

namespace kzq::simulator {

namespace {

/// The pedal sends a loop padded to whole blocks of this many bytes.
constexpr std::size_t alignment = 64;

}  // namespace

bool SimulatedPedal::startImport(std::size_t address, unsigned channel) {
    dropStreams();
    journal_.excuse(false);
    if (inLoader() || address >= loopSlots) {
        return false;
    }
    const LoopPointer& loop = loops_.at(address);
    if (!loop || loop->size() < frameBytes || loop->channel != channel) {
        return false;
    }
    const std::size_t bytes = loop->size() / frameBytes * frameBytes;
    import_ = ImportStream{loop, 0, (bytes + alignment - 1) / alignment * alignment};
    streamExcused_ = loop != told_.at(address);  // it may be longer than anybody knows
    return true;
}

bool SimulatedPedal::announceExport(std::size_t address) {
    dropStreams();
    journal_.excuse(false);
    if (inLoader() || address >= loopSlots) {
        return false;
    }
    export_ = ExportStream{static_cast<std::uint8_t>(address), std::nullopt, {}};
    return true;
}

bool SimulatedPedal::announceLength(std::size_t bytes) {
    if (!export_ || export_->total) {
        journal_.outOfOrder("E3 without E2");
        return false;
    }
    const LoopPointer& old = loops_.at(export_->address);
    const std::uint64_t freed = old ? old->size() / frameBytes : 0;
    const std::uint64_t frames = (bytes + frameBytes - 1) / frameBytes;
    if (bytes < frameBytes || usedFrames() - freed + frames > capacityFrames) {
        export_.reset();
        return false;
    }
    export_->total = bytes;
    streamExcused_ = false;
    export_->audio.reserve(bytes);
    return true;
}

std::size_t SimulatedPedal::bytesToSend() const {
    const Lock lock(mutex_);
    return import_ ? import_->total - import_->sent : 0;
}

bool SimulatedPedal::awaitsAudio() const {
    const Lock lock(mutex_);
    return expectsAudio();
}

TransferResult SimulatedPedal::sendAudio(std::span<std::uint8_t> into) {
    if (!import_) {
        journal_.outOfOrder("a bulk read without a loop to send");
        return {TransferStatus::pending, 0};
    }
    const std::size_t length = std::min(into.size(), import_->total - import_->sent);
    if (!import_->loop->read(import_->sent, into.first(length))) {
        return {TransferStatus::stalled, 0};
    }
    import_->sent += length;
    if (import_->sent == import_->total) {
        import_.reset();
    }
    return {TransferStatus::done, length};
}

TransferResult SimulatedPedal::receive(std::span<const std::uint8_t> from, std::optional<FaultKind> fault) {
    if (expectsAudio()) {
        inspectPiece(from.size(), *export_->total - export_->audio.size());
    } else {
        loader_.inspectOffer(from.size());
    }
    const auto offered = fault == FaultKind::shorten ? from.first(from.size() / 2) : from;
    if (expectsAudio()) {
        return {TransferStatus::done, receiveAudio(offered)};
    }
    const auto taken = loader_.receive(offered, executor_.now());
    if (!taken) {
        journal_.outOfOrder("a bulk write that was not announced");
        return {TransferStatus::stalled, 0};
    }
    finishUpdate();
    return {TransferStatus::done, *taken};
}

std::size_t SimulatedPedal::receiveAudio(std::span<const std::uint8_t> from) {
    const auto taken = from.first(std::min(from.size(), *export_->total - export_->audio.size()));
    if (taken.empty()) {
        return 0;
    }
    if (export_->audio.empty()) {
        changeLoop(export_->address, nullptr);
    }
    export_->audio.insert(export_->audio.end(), taken.begin(), taken.end());
    if (export_->audio.size() == *export_->total) {
        storeExport();
    }
    return taken.size();
}

void SimulatedPedal::inspectPiece(std::size_t bytes, std::size_t due) {
    if (bytes > transferPiece) {
        journal_.violation("a piece of " + std::to_string(bytes) + " bytes");
    }
    if (bytes > due) {
        journal_.violation("a piece of more bytes than the " + std::to_string(due) + " that are due");
    }
}

void SimulatedPedal::storeExport() {
    ExportStream done = std::move(*export_);
    export_.reset();
    done.audio.resize(done.audio.size() / frameBytes * frameBytes);
    changeLoop(done.address, std::make_shared<StoredLoop>(StoredLoop{std::move(done.audio)}));
}

void SimulatedPedal::finishUpdate() {
    if (!loader_.isInstalled()) {
        return;
    }
    if (const auto version = versionInImage(*loader_.installedImage())) {
        version_ = *version;
    } else if (!nextVersion_.empty()) {
        version_ = nextVersion_;
    }
    restartInto(stageNormal);
}

void SimulatedPedal::dropStreams() {
    import_.reset();
    export_.reset();
}

void SimulatedPedal::changeLoop(std::size_t address, LoopPointer loop) {
    if (!loop && !loops_.at(address)) {
        return;
    }
    loops_.at(address) = loop;
    news_.push_back({std::nullopt, static_cast<std::uint8_t>(address), std::move(loop)});
}

std::uint64_t SimulatedPedal::usedFrames() const {
    std::uint64_t frames = 0;
    for (const LoopPointer& loop : loops_) {
        if (loop) {
            frames += loop->size() / frameBytes;
        }
    }
    return frames;
}

}  // namespace kzq::simulator
