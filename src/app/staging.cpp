#include "app/staging.h"

#include <QFileInfo>
#include <ranges>
#include <system_error>
#include <utility>

#include "app/presenter.h"
#include "app/rows.h"
#include "app/said.h"
#include "app/teller.h"
#include "audio/wave.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "words/words.h"

namespace kzq {

namespace {

/// Time for an open panel to close.
constexpr auto afterPanel = std::chrono::milliseconds(100);

void removeFile(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
}

}  // namespace

void Staging::choose(const Slot& row) {
    const auto slot = slotOf(row);
    auto& executor = environment_.executor;
    const auto weak = weak_from_this();
    const auto chosen = environment_.dialogs.chooseFile(
        words("Choose an audio file for %1", loopName(slot)),
        {words("Audio files"), {audioExtensions.begin(), audioExtensions.end()}});
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
    if (files.isEmpty()) {
        return;
    }
    const Drop drop{slotOf(row), files.first(), model_.nextDrop()};
    convert(drop, environment_.convert);
    if (files.size() > 1) {
        unused_.tell(
            {.what = words(static_cast<std::size_t>(files.size()), "Only the first of %n file was used",
                           "Only the first of %n files was used"),
             .detail = words("Each row takes one file."),
             .failure = true},
            files.mid(1), drop);
    }
}

std::vector<SlotNumber> Staging::freeRows() const {
    auto rows = allSlots();
    std::erase_if(rows, [this](SlotNumber slot) {
        return model_.table().contains(slot) || model_.staging().contains(slot) || expected_.contains(slot);
    });
    return rows;
}

void Staging::convert(const Drop& drop, const Convert& how) {
    expected_.insert(drop.slot);
    environment_.executor.background(Priority::high,
                                     [&executor = environment_.executor, weak = weak_from_this(), drop, how,
                                      path = drop.file.toLocalFile().toStdString()] {
                                         executor.main([weak, drop, copy = how(path)] {
                                             const auto self = weak.lock();
                                             if (!self) {
                                                 return;
                                             }
                                             if (!copy) {
                                                 self->expected_.extract(drop.slot);
                                                 self->tellUnusable(drop, copy.error());
                                                 self->settle();
                                                 return;
                                             }
                                             self->waiting_.emplace_back(drop, *copy);
                                             self->work();
                                         });
                                     });
}

void Staging::tellUnusable(const Drop& drop, const Trouble& trouble) {
    Remedy anyway;
    if (isSalvageable(trouble) && environment_.salvage) {
        anyway = {words("Use it anyway"), [weak = weak_from_this(), drop] {
                      const auto self = weak.lock();
                      return self && self->useAnyway(drop);
                  }};
    }
    unused_.tell(toldUnusable(drop.file.fileName().toStdString(), trouble), {drop.file}, drop,
                 std::move(anyway));
}

/// What there is of a damaged file, on its row, or on another if that has a file now.
bool Staging::useAnyway(const Drop& drop) {
    const auto file = drop.file.fileName().toStdString();
    const auto slot = model_.freeFrom(drop.slot, expected_);
    if (!slot) {
        unused_.tell(
            {.what = words("There is no free row for \"%1\"", file), .failure = true, .names = {file}},
            {drop.file}, {});
        return false;
    }
    if (*slot != drop.slot) {
        teller_.tell({.what = words("\"%1\" goes to the row of %2", file, loopName(*slot)),
                      .detail = words("%1 has another file.", loopName(drop.slot)),
                      .names = {file}});
    }
    convert({*slot, drop.file, model_.nextDrop(), drop.quiet}, environment_.salvage);
    return true;
}

void Staging::release() {
    if (--holds_ == 0) {
        environment_.executor.main([weak = weak_from_this()] {
            if (const auto self = weak.lock()) {
                self->work();
            }
        });
    }
}

void Staging::work() {
    while (holds_ == 0 && !waiting_.empty()) {
        const auto [drop, copy] = std::move(waiting_.front());
        waiting_.pop_front();
        expected_.extract(drop.slot);
        stage(drop, copy);
    }
    sayTooLarge();
    settle();
}

void Staging::whenSettled(std::function<void()> then) {
    whenSettled_ = std::move(then);
    settle();
}

void Staging::settle() {
    if (expected_.empty() && whenSettled_) {
        std::exchange(whenSettled_, {})();
    }
}

/// One alert at a time, and none while a transfer runs.
void Staging::sayTooLarge() {
    const auto self = shared_from_this();  // an alert runs an event loop
    while (tooLarge_ != 0 && holds_ == 0 && !alerting_) {
        --tooLarge_;
        alerting_ = true;
        environment_.dialogs.run(alertWithHeadline(tooLargeSentence()));
        alerting_ = false;
    }
}

void Staging::letGo(const std::map<SlotNumber, QUrl>& files) {
    for (const auto& [slot, file] : files) {
        if (!underWay_.contains(slot)) {
            letGo_.insert_or_assign(slot, file);
        }
    }
}

void Staging::setUnderWay(const Exports& exports) {
    const auto slots = slotsOf(exports);
    underWay_ = {slots.begin(), slots.end()};
}

void Staging::arrived() {
    if (!letGo_.empty()) {
        const auto files = std::exchange(letGo_, {});
        teller_.tell({.what = words("Plugged in: staged files were removed, as the pedal's slots may differ"),
                      .detail = words(files.size(), "\"Stage again\" puts it on the same row.",
                                      "\"Stage again\" puts them on the same rows."),
                      .failure = true},
                     "staging", stagingAgain(files));
    }
}

Remedy Staging::stagingAgain(std::map<SlotNumber, QUrl> files) {
    return {words("Stage again"), [weak = weak_from_this(), files = std::move(files)] {
                const auto self = weak.lock();
                for (const auto& [slot, file] : files) {
                    self->convert(slot, file);
                }
                return true;
            }};
}

void Staging::stage(const Drop& drop, const std::filesystem::path& copy) {
    std::error_code error;
    const auto size = std::filesystem::file_size(copy, error);
    if (error || size < waveHeaderSize) {
        tellUnusable(drop, error ? Trouble{Trouble::Kind::unreadable, copy.string(), error.value()}
                                 : Trouble{Trouble::Kind::noSound});
        return;
    }
    const auto info = exportInfoForLoop(drop.slot.number(), model_.table().contains(drop.slot), copy,
                                        size - waveHeaderSize);
    if (!info) {
        tellUnusable(drop, Trouble{Trouble::Kind::noSound});
        return;
    }
    switch (model_.stage(*info, drop.order)) {
        case LoopModel::Staged::yes:
            presenter_.staged(drop.slot, drop.file);
            sayStaged(drop, *info);
            unused_.staged(drop);
            break;
        case LoopModel::Staged::overtaken:
            removeFile(copy);  // a later drop on this row was converted sooner
            break;
        case LoopModel::Staged::tooLarge:
            refuse(drop, *info);
            break;
    }
}

/// Unless the keyboard is there: then the change of its description is read out.
void Staging::sayStaged(const Drop& drop, const ExportInfo& info) {
    if (presenter_.hasKeyboard(drop.slot)) {
        return;
    }
    const auto* const loop = model_.table().find(drop.slot);
    const auto name = QFileInfo(drop.file.fileName()).completeBaseName().toStdString();
    teller_.say(saidStaged(name, drop.slot, Frames::ofBytes(info.bytes),
                           loop != nullptr ? std::optional(Frames{loop->samples}) : std::nullopt));
}

void Staging::refuse(const Drop& drop, const ExportInfo& info) {
    if (!drop.quiet) {
        ++tooLarge_;
        return;
    }
    removeFile(info.source);
    const auto file = drop.file.fileName().toStdString();
    unused_.tell({.what = words("\"%1\" was left out", file),
                  .why = words("it is too long: %1, and %2 is left", clockText(Frames::ofBytes(info.bytes)),
                               clockText(Frames{remainingFrames(model_.inUse().count)})),
                  .failure = true,
                  .names = {file}},
                 {drop.file}, drop);
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
