#include <map>
#include <string>
#include <system_error>
#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "app/loop_check.h"
#include "app/transfer_run.h"
#include "audio/wave.h"
#include "device/kzq7306.h"
#include "loops/capacity.h"
#include "operations/sentences.h"
#include "platform/free_space.h"
#include "platform/log.h"

// Loops go from the pedal into files.

namespace kzq {

namespace {

/// Shared by the callbacks of one import. They run on the link's thread, one after the other.
struct Import {
    TransferRun run;
    std::filesystem::path folder;
    std::map<std::uint8_t, std::string> names;  ///< of the rows, as they were at the start
    decltype(AppEnvironment::writeFile) writeFile;

    void loopRead(const std::optional<std::vector<std::uint8_t>>& file, std::uint8_t slot) {
        const auto notSaved = "loop " + std::to_string(slot) + " was not saved: ";
        if (!file) {
            log(LogCategory::files, notSaved + "it could not be read from the pedal.");
            return;
        }
        run.add(file->size());
        const auto name = names.find(slot);
        if (name == names.end()) {
            return;
        }
        if (const auto saved = writeFile(folder, name->second, ".wav", *file); !saved) {
            log(LogCategory::files,
                notSaved + saved.error().where + ": " + std::generic_category().message(saved.error().error));
        }
        run.loopDone(slot);
    }
};

}  // namespace

void AppDelegate::importButtonClicked() {
    whenIdle([this] {
        endEditing();
        const auto chosen = parts_->environment.dialogs.chooseFolder("Save");
        if ((chosen.answer != panelOk && chosen.answer != panelContinue) || chosen.path.empty()) {
            endStart();
            return;
        }
        startSoon([folder = chosen.path](AppDelegate& self) { self.startImport(folder); });
    });
}

void AppDelegate::startImport(const std::filesystem::path& folder) {
    std::vector<std::uint8_t> numbers;
    std::map<std::uint8_t, std::string> names;
    std::uint64_t total = 0;
    for (const auto selected : parts_->model.selection()) {
        const auto number = selected.number();
        numbers.push_back(number);
        const auto* const slot = parts_->rows.importRow(selected);
        const auto loop = shownIn(selected);
        if (slot == nullptr || !loop) {
            endStart();
            return;
        }
        if (!hasPossibleLength(*loop)) {
            log(LogCategory::application, longerThanMemory(selected) + " Nothing was saved.");
            endStart();
            return;
        }
        total += slot->bytes();
        if (const auto name = slot->name()) {
            names.emplace(number, name->toStdString());
        }
    }
    if (numbers.empty()) {
        endStart();
        return;
    }
    openProgress(total, Slot::importContext);
    beginRun();
    const std::shared_ptr<Import> import(
        new Import{{parts_->environment.executor, total,
                    transferListener(&AppDelegate::loopSaved, &AppDelegate::finishImport)},
                   folder,
                   std::move(names),
                   parts_->environment.writeFile});
    const auto roomFor = [folder, needed = total + numbers.size() * waveHeaderSize,
                          freeSpace = parts_->environment.freeSpace](KZQ7306& /*looper*/) {
        const auto problem = tooLittleSpace(folder, needed, freeSpace);
        if (problem) {
            log(LogCategory::files, "Nothing was saved. " + spaceSentence(*problem));
        }
        return !problem;
    };
    onLink(roomFor, [import, numbers](KZQ7306& looper) {
        return looper.importLoops(
            numbers, [import](std::uint32_t bytes, std::uint8_t /*slot*/) { import->run.moved(bytes); },
            [import](const auto& file, std::uint8_t slot) { import->loopRead(file, slot); },
            [import](std::uint8_t /*count*/) { import->run.finished(); });
    });
}

void AppDelegate::loopSaved(std::uint8_t number) {
    parts_->presenter.saved(SlotNumber::of(number).value());
}

void AppDelegate::finishImport() {
    parts_->transferPanel.close();
    deselectAll();
    endRun();
}

}  // namespace kzq
