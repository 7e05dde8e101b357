#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <new>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "device/kzq7306.h"
#include "loops/facts.h"
#include "platform/log.h"

namespace kzq {

namespace {

/// All the pedal can hold, 24 minutes, plus the header.
constexpr std::uintmax_t largestCopy = waveHeaderSize + capacityFrames * frameBytes;

/// The whole file, or nothing if it is not a file, is empty, longer than any loop or unreadable.
std::optional<Bytes> contents(const std::filesystem::path& path) {
    std::error_code error;
    const bool plain = std::filesystem::is_regular_file(path, error);
    const auto size = plain ? std::filesystem::file_size(path, error) : 0;
    if (error || size == 0 || size > largestCopy) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    Bytes bytes(static_cast<std::size_t>(size));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): iostreams read characters
    if (!file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace

std::uint32_t KZQ7306::exportLoop(const ExportInfo& info, const TransferProgress& progress) {
    if (!progress) {
        fail(Failure::badRequest);
        return 0;
    }
    const std::lock_guard guard(*lock_);
    try {
        const auto file = contents(info.source);
        const auto audio = file ? lpcm(*file) : std::nullopt;
        if (!audio || audio->empty()) {
            log(LogCategory::device, "export: no audio in the working copy");
            fail(Failure::noAudio);
            return 0;
        }
        return sendAudio(info, *audio, progress);
    } catch (const std::bad_alloc&) {
        log(LogCategory::device, "export: not enough memory for the loop");
        fail(Failure::outOfMemory);
        return 0;
    }
}

std::uint32_t KZQ7306::sendAudio(const ExportInfo& info, std::span<const std::uint8_t> audio,
                                 const TransferProgress& progress) {
    constexpr unsigned half = 16;
    const auto size = static_cast<std::uint32_t>(audio.size());
    const auto index = static_cast<std::uint8_t>(info.destination - 1);
    if (!ask(wire::exportLoop, index, info.occupied ? 1 : 0).accepted ||
        !ask(wire::exportLength, static_cast<std::uint16_t>(size), static_cast<std::uint16_t>(size >> half))
             .accepted) {
        return 0;
    }
    for (std::uint32_t sent = 0; sent < size;) {
        if (cancel()) {
            fail(Failure::cancelled);
            return 0;
        }
        const auto piece = audio.subspan(sent, std::min<std::size_t>(size - sent, transferPiece));
        if (!write(piece)) {
            return 0;
        }
        sent += static_cast<std::uint32_t>(piece.size());
        progress(static_cast<std::uint32_t>(piece.size()), index);
    }
    return size;
}

bool KZQ7306::exportLoops(Exports exports, TransferProgress progress,
                          ExportPartialCompletion partialCompletion, BatchCompletion completion) {
    const bool complete = !exports.empty() && progress && partialCompletion && completion;
    return startBatch(complete, [exports = std::move(exports), progress = std::move(progress),
                                 partialCompletion = std::move(partialCompletion),
                                 completion = std::move(completion)](KZQ7306& self) {
        std::vector<std::uint8_t> slots;  // ascending, as the map is
        for (const auto& entry : exports) {
            slots.push_back(entry.first);
        }
        const auto total = self.runningTotal(progress);
        const auto transfer = [&](std::uint8_t slot) {
            const auto sent = self.exportLoop(exports.at(slot), total);
            partialCompletion(sent, slot);
            return sent != 0;
        };
        self.transferBatch(exporting, pedalBulkOut, slots, transfer, completion);
    });
}

}  // namespace kzq
