#include "app/staging.h"

#include <system_error>
#include <utility>

#include "app/presenter.h"
#include "app/rows.h"
#include "audio/wave.h"
#include "loops/capacity.h"
#include "loops/facts.h"

namespace kzq {

namespace {

/// Time for an open panel to close.
constexpr auto afterPanel = std::chrono::milliseconds(100);

const FileTypes audioTypes(audioExtensions.begin(), audioExtensions.end());

void removeFile(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

}  // namespace

void Staging::choose(const Slot& row) {
    const auto slot = slotOf(row);
    auto& executor = environment_.executor;
    const auto weak = weak_from_this();
    const auto chosen = environment_.dialogs.chooseFile(audioTypes);
    if ((chosen.answer != panelOk && chosen.answer != panelContinue) || chosen.path.empty()) {
        return;
    }
    const auto file = QUrl::fromLocalFile(QString::fromStdString(chosen.path.string()));
    executor.mainAfter(afterPanel, [weak, slot, file] {
        if (const auto self = weak.lock()) {
            self->convert(slot, file);
        }
    });
}

void Staging::dropped(const Slot& row, const QList<QUrl>& files) {
    if (!files.isEmpty()) {
        convert(slotOf(row), files.first());
    }
}

void Staging::convert(SlotNumber slot, const QUrl& file) {
    const Drop drop{slot, file, model_.nextDrop()};
    environment_.executor.background(
        Priority::high, [&executor = environment_.executor, weak = weak_from_this(), drop,
                         convert = environment_.convert, path = file.toLocalFile().toStdString()] {
            const auto copy = convert(path);
            if (!copy) {
                return;
            }
            executor.main([weak, drop, copy = std::filesystem::path(*copy)] {
                if (const auto self = weak.lock()) {
                    self->stage(drop, copy);
                }
            });
        });
}

void Staging::stage(const Drop& drop, const std::filesystem::path& copy) {
    std::error_code error;
    const auto size = std::filesystem::file_size(copy, error);
    if (error || size < waveHeaderSize) {
        return;
    }
    const auto info = exportInfoForLoop(drop.slot.number(), model_.table().contains(drop.slot), copy,
                                        size - waveHeaderSize);
    if (!info) {
        return;
    }
    switch (model_.stage(*info, drop.order)) {
        case LoopModel::Staged::yes:
            presenter_.staged(drop.slot, drop.file);
            break;
        case LoopModel::Staged::overtaken:
            removeFile(copy);  // a later drop on this row was converted sooner
            break;
        case LoopModel::Staged::tooLarge:
            environment_.dialogs.run(alertWithHeadline(std::string(tooLargeSentence)));
            break;
    }
}

void Staging::aboutToBeRemoved(const Slot& row) const {
    if (const auto staged = model_.staging().find(slotOf(row)); staged != model_.staging().end()) {
        removeFile(staged->second.source);
    }
}

void Staging::removed(Slot& row) {
    model_.unstage(slotOf(row));
    presenter_.unstaged(row);
}

void Staging::removeWorkingCopies() const {
    for (const auto& [slot, info] : model_.staging()) {
        removeFile(info.source);
    }
}

}  // namespace kzq
