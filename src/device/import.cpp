#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "audio/wave.h"
#include "device/kzq7306.h"
#include "loops/facts.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr std::uint32_t pedalChannels = 2;

}  // namespace

std::optional<std::vector<std::uint8_t>> KZQ7306::importLoop(std::uint8_t slot,
                                                             const TransferProgress& progress,
                                                             const AudioPiece& piece) {
    const auto known = SlotNumber::of(slot);
    if (!known || !progress) {
        fail(Trouble::Kind::badRequest);
        return std::nullopt;
    }
    const std::lock_guard guard(*lock_);
    setTrouble(std::nullopt);
    try {
        return kept(readLoop(*known, progress, piece));
    } catch (const std::bad_alloc&) {
        log(LogCategory::device, "import: not enough memory for the loop");
        fail(Trouble::Kind::outOfMemory);
        return std::nullopt;
    }
}

Result<Bytes> KZQ7306::readLoop(SlotNumber slot, const TransferProgress& progress, const AudioPiece& piece) {
    const auto now = query(true);
    if (!now) {
        return now.error();
    }
    const auto* const loop = now->loops.find(slot);
    if (loop == nullptr) {
        return Trouble{now->loops.complete ? Trouble::Kind::emptySlot : Trouble::Kind::noStatus};
    }
    const auto answer = ask(wire::importLoop, loop->address, loop->channel);
    if (!answer.accepted) {
        return answer.trouble();
    }
    auto file = readAudio(*loop, slot, progress, piece);
    if (file && !addWaveHeader(*file, pedalChannels)) {
        return Trouble{Trouble::Kind::outOfMemory};
    }
    return file;
}

/// The loop's frames, once the pedal has agreed to send them, behind room for a header: a long loop is in
/// memory only once. The padding after them is dropped.
Result<Bytes> KZQ7306::readAudio(const Loop& loop, SlotNumber slot, const TransferProgress& progress,
                                 const AudioPiece& heard) {
    const auto handle = core();  // which does not change while the lock is held
    if (!handle) {
        return Trouble{Trouble::Kind::noPedal};
    }
    Bytes file;
    file.reserve(waveHeaderSize + std::size_t{loop.alignedBytes} + transferPiece);
    file.resize(waveHeaderSize);
    const auto came = [&file] { return file.size() - waveHeaderSize; };
    std::array<std::uint8_t, transferPiece> room{};
    while (came() < loop.alignedBytes) {
        if (cancel()) {
            return Trouble{Trouble::Kind::cancelled};
        }
        const auto due = loop.alignedBytes - came();
        const auto piece = std::span(room).first(std::min(due, transferPiece));
        if (auto received = receive(*handle, piece, due); !received) {
            return std::move(received.error());
        }
        file.insert(file.end(), piece.begin(), piece.end());
        if (heard) {
            heard(piece, slot.number());
        }
        progress(static_cast<std::uint32_t>(piece.size()), slot.number());
    }
    // A table entry so large that its size wraps, padded or not: no WAV could hold it, and what came is not
    // it.
    if (came() < loop.bytes || std::uint64_t{loop.samples} * frameBytes != loop.bytes) {
        return Trouble{Trouble::Kind::tooLarge};
    }
    file.resize(waveHeaderSize + loop.bytes);
    return file;
}

bool KZQ7306::importLoops(std::vector<std::uint8_t> slots, TransferProgress progress,
                          ImportPartialCompletion partialCompletion, BatchCompletion completion,
                          AudioPiece piece, BatchGate gate) {
    const bool complete = !slots.empty() && progress && partialCompletion && completion;
    return startBatch(
        complete, [slots = std::move(slots), progress = std::move(progress),
                   partialCompletion = std::move(partialCompletion), completion = std::move(completion),
                   piece = std::move(piece), gate = std::move(gate)](KZQ7306& self) {
            const auto total = self.runningTotal(progress);
            const auto transfer = [&](std::uint8_t slot) {
                auto file = self.importLoop(slot, total, piece);
                const bool came = file.has_value();
                partialCompletion(std::move(file), slot);
                return came;
            };
            self.transferBatch(importingOrErasing, pedalBulkIn, slots, transfer, completion, gate);
        });
}

}  // namespace kzq
