#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <new>
#include <utility>

#include "audio/wave.h"
#include "device/kzq7306.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "platform/plain_file.h"

namespace kzq {

namespace {

/// All the pedal can hold, 24 minutes, plus the header.
constexpr std::uintmax_t largestCopy = waveHeaderSize + capacityFrames * frameBytes;

/// Memory that is not cleared before a file is read into it.
struct Contents {
    std::size_t size = 0;
    std::unique_ptr<std::uint8_t[]> bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size);
};

/// The whole file, or nothing if it is not a file, is empty, longer than any loop or unreadable.
std::optional<Contents> contents(const std::filesystem::path& path) {
    const auto opened = openPlainFile(path, Links::followed);
    if (!opened || opened->size == 0 || opened->size > largestCopy) {
        return std::nullopt;
    }
    Contents file{static_cast<std::size_t>(opened->size)};
    const auto count = readAt(opened->file.get(), {file.bytes.get(), file.size}, 0);
    return count == file.size ? std::optional(std::move(file)) : std::nullopt;
}

}  // namespace

std::uint32_t KZQ7306::exportLoop(const ExportInfo& info, const TransferProgress& progress) {
    if (!progress) {
        fail(Trouble::Kind::badRequest);
        return 0;
    }
    const std::lock_guard guard(*lock_);
    setTrouble(std::nullopt);
    try {
        return kept(sendLoop(info, progress)).value_or(0);
    } catch (const std::bad_alloc&) {
        log(LogCategory::device, "export: not enough memory for the loop");
        fail(Trouble::Kind::outOfMemory);
        return 0;
    }
}

Result<std::uint32_t> KZQ7306::sendLoop(const ExportInfo& info, const TransferProgress& progress) {
    const auto file = contents(info.source);
    const auto audio = file ? lpcmIn({file->bytes.get(), file->size}) : std::nullopt;
    if (!audio || audio->empty()) {
        log(LogCategory::device, "export: no audio in the working copy");
        return Trouble{Trouble::Kind::noAudio};
    }
    return sendAudio(info, *audio, progress);
}

Result<std::uint32_t> KZQ7306::sendAudio(const ExportInfo& info, ByteView audio,
                                         const TransferProgress& progress) {
    constexpr unsigned half = 16;
    const auto size = static_cast<std::uint32_t>(audio.size());
    const auto index = static_cast<std::uint8_t>(info.destination - 1);
    const auto announced = ask(wire::exportLoop, index, info.occupied ? 1 : 0);
    if (!announced.accepted) {
        return announced.trouble();
    }
    const auto measured =
        ask(wire::exportLength, static_cast<std::uint16_t>(size), static_cast<std::uint16_t>(size >> half));
    if (!measured.accepted) {
        return measured.trouble();
    }
    for (std::uint32_t sent = 0; sent < size;) {
        if (cancel()) {
            return Trouble{Trouble::Kind::cancelled};
        }
        const auto piece = audio.subspan(sent, std::min<std::size_t>(size - sent, transferPiece));
        Gone gone;
        if (auto moved = send(piece, gone); !moved) {
            return std::move(moved.error());
        }
        sent += static_cast<std::uint32_t>(piece.size());
        progress(static_cast<std::uint32_t>(piece.size()), index);
    }
    return size;
}

bool KZQ7306::exportLoops(Exports exports, TransferProgress progress,
                          ExportPartialCompletion partialCompletion, BatchCompletion completion,
                          BatchGate gate) {
    const bool complete = !exports.empty() && progress && partialCompletion && completion;
    return startBatch(complete, [exports = std::move(exports), progress = std::move(progress),
                                 partialCompletion = std::move(partialCompletion),
                                 completion = std::move(completion), gate = std::move(gate)](KZQ7306& self) {
        std::vector<std::uint8_t> slots;  // ascending, as the map is
        for (const auto& entry : exports) {
            slots.push_back(entry.first.number());
        }
        const auto total = self.runningTotal(progress);
        const auto transfer = [&](std::uint8_t slot) {
            const auto sent = self.exportLoop(exports.at(*SlotNumber::of(slot)), total);
            partialCompletion(sent, slot);
            return sent != 0;
        };
        self.transferBatch(exporting, pedalBulkOut, std::move(slots), transfer, completion, gate);
    });
}

}  // namespace kzq
