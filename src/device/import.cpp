#include <algorithm>
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
                                                             const TransferProgress& progress) {
    if (slot == 0 || slot > loopSlots || !progress) {
        fail(Failure::badRequest);
        return std::nullopt;
    }
    const std::lock_guard guard(*lock_);
    const auto table = loops();
    if (!table) {
        return std::nullopt;
    }
    const auto loop = table->find(slot);
    if (loop == table->end()) {
        fail(table->complete ? Failure::emptySlot : Failure::noStatus);
        return std::nullopt;
    }
    if (!ask(wire::importLoop, loop->second.address, loop->second.channel).accepted) {
        return std::nullopt;
    }
    try {
        const auto audio = readAudio(loop->second, slot, progress);
        auto file = audio ? wave(*audio, pedalChannels) : std::nullopt;
        if (audio && !file) {
            fail(Failure::outOfMemory);
        }
        return file;
    } catch (const std::bad_alloc&) {
        log(LogCategory::device, "import: not enough memory for the loop");
        fail(Failure::outOfMemory);
        return std::nullopt;
    }
}

/// The loop's frames, once the pedal has agreed to send them; the padding after them is dropped.
std::optional<std::vector<std::uint8_t>> KZQ7306::readAudio(const Loop& loop, std::uint8_t slot,
                                                            const TransferProgress& progress) {
    std::vector<std::uint8_t> audio;
    audio.reserve(std::size_t{loop.alignedBytes} + transferPiece);
    while (audio.size() < loop.alignedBytes) {
        if (cancel()) {
            fail(Failure::cancelled);
            return std::nullopt;
        }
        const auto due = loop.alignedBytes - audio.size();
        const auto piece = read(static_cast<std::int32_t>(std::min(due, transferPiece)));
        if (!piece) {
            return std::nullopt;
        }
        audio.insert(audio.end(), piece->begin(), piece->end());
        progress(static_cast<std::uint32_t>(piece->size()), slot);
    }
    if (audio.size() <
        loop.bytes) {  // a table entry so large that its padded size wraps: no WAV could hold it
        fail(Failure::tooLarge);
        return std::nullopt;
    }
    audio.resize(loop.bytes);
    return audio;
}

bool KZQ7306::importLoops(std::vector<std::uint8_t> slots, TransferProgress progress,
                          ImportPartialCompletion partialCompletion, BatchCompletion completion) {
    const bool complete = !slots.empty() && progress && partialCompletion && completion;
    return startBatch(complete, [slots = std::move(slots), progress = std::move(progress),
                                 partialCompletion = std::move(partialCompletion),
                                 completion = std::move(completion)](KZQ7306& self) {
        const auto total = self.runningTotal(progress);
        const auto transfer = [&](std::uint8_t slot) {
            auto file = self.importLoop(slot, total);
            const bool came = file.has_value();
            partialCompletion(std::move(file), slot);
            return came;
        };
        self.transferBatch(importingOrErasing, pedalBulkIn, slots, transfer, completion);
    });
}

}  // namespace kzq
