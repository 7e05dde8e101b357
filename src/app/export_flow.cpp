#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "app/transfer_run.h"
#include "audio/wave.h"
#include "device/kzq7306.h"
#include "platform/log.h"

// Files go from the computer into the pedal.

namespace kzq {

namespace {

constexpr std::string_view nothingWritten = "Nothing was written.";

/// What the progress panel counts: the header is subtracted twice, so the last fraction may exceed 1.
std::uint64_t shownTotal(const Exports& exports) {
    std::uint64_t total = 0;
    for (const auto& [slot, info] : exports) {
        total += info.bytes >= waveHeaderSize ? info.bytes - waveHeaderSize : 0;
    }
    return total;
}

bool overwrites(const Exports& exports) {
    return std::ranges::any_of(exports, [](const auto& entry) { return entry.second.occupied; });
}

/// Brings the working copies into memory, so that no disk is waited for between the reading of the pedal's
/// table and the first byte that overwrites a loop.
void readAhead(const Exports& exports) {
    constexpr std::size_t piece = 1U << 20U;
    std::vector<char> bytes(piece);
    for (const auto& [slot, info] : exports) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(info.source, ignored)) {
            std::ifstream file(info.source, std::ios::binary);
            while (file.read(bytes.data(), piece)) {
            }
        }
    }
}

}  // namespace

void AppDelegate::exportButtonClicked() {
    whenIdle([this] { startSoon(&AppDelegate::startExport); });
}

void AppDelegate::startExport() {
    const auto exports = parts_->model.staging();
    if (exports.empty()) {
        endStart();
        return;
    }
    AskedLoops asked;
    for (const auto& [slot, info] : exports) {
        asked.emplace(slot, info.occupied ? shownIn(slot) : std::nullopt);
    }
    const auto total = shownTotal(exports);
    if (overwrites(exports)) {
        const auto answer = parts_->environment.dialogs.run(yesOrNoAlertWithHeadline(
            "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you "
            "like to continue?"));
        if (answer != alertFirstButton) {
            endStart();
            return;
        }
        if (!stillStaged(exports)) {
            log(LogCategory::application,
                "what is staged has changed meanwhile. " + std::string(nothingWritten));
            endStart();
            return;
        }
    }
    openProgress(total, Slot::exportContext);
    beginRun();
    const auto run = std::make_shared<TransferRun>(
        parts_->environment.executor, total,
        transferListener(&AppDelegate::loopSent,
                         [exports](AppDelegate& self) { self.finishExport(exports); }));
    const auto current = std::make_shared<Exports>(exports);
    const auto ready = [asked, current](KZQ7306& looper) {
        readAhead(*current);
        const auto table = unchangedTable(looper, asked, nothingWritten);
        if (!table || !possibleTable(looper, *table, nothingWritten)) {
            return false;
        }
        for (auto& [slot, info] : *current) {
            info.occupied = table->contains(slot);
        }
        return true;
    };
    onLink(ready, [run, current](KZQ7306& looper) {
        return looper.exportLoops(
            *current, [run](std::uint32_t bytes, std::uint8_t /*index*/) { run->moved(bytes); },
            [run](std::uint32_t bytes, std::uint8_t slot) {
                run->add(bytes);
                run->loopDone(slot);
            },
            [run](std::uint8_t /*count*/) { run->finished(); });
    });
}

/// Whether the question was about what is staged now: meanwhile the pedal may have left, and another may have
/// arrived.
bool AppDelegate::stillStaged(const Exports& asked) const {
    return std::ranges::all_of(asked, [this](const auto& entry) {
        const auto now = parts_->model.staging().find(entry.first);
        return now != parts_->model.staging().end() && now->second.source == entry.second.source;
    });
}

void AppDelegate::loopSent(std::uint8_t number) {
    parts_->presenter.sent(SlotNumber::of(number).value());
}

void AppDelegate::finishExport(const Exports& sent) {
    parts_->transferPanel.close();
    deselectAllExportSlots();
    if (const auto looper = parts_->environment.link()) {
        looper->refresh();
    }
    endRun();
    for (const auto& [slot, info] : sent) {
        std::error_code ignored;
        std::filesystem::remove(info.source, ignored);
    }
}

}  // namespace kzq
