#include "app/carry_in.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "app/held_files.h"
#include "app/main_window.h"
#include "operations/sentences.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

/// A drag that goes from a row to the gap below it is not looked at anew.
constexpr auto sameDrag = std::chrono::seconds(1);

bool anyAudio(const QList<QUrl>& files) {
    return std::ranges::any_of(files, isAudioFile);
}

DropSign signOf(const CarriedFile& file, CarryFate fate, bool occupied) {
    DropSign sign{.kind = occupied ? DropSign::Kind::replaces : DropSign::Kind::fills,
                  .name = toQt(file.shown),
                  .length = file.length ? toQt(clockText(*file.length)) : QString(),
                  .refusal = {}};
    if (fate == CarryFate::tooLong || fate == CarryFate::unreadable) {
        sign.kind = DropSign::Kind::refused;
        sign.refusal = toQt(fate == CarryFate::tooLong ? words("too long") : words("not readable"));
    }
    return sign;
}

}  // namespace

void CarryIn::watch() {
    for (QWidget* const target :
         {parts_.window.tabs()->widget(1), static_cast<QWidget*>(parts_.window.exportTabButton())}) {
        target->setAcceptDrops(true);
        target->installEventFilter(this);
    }
}

bool CarryIn::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            break;
        case QEvent::DragLeave:
            letGo();
            return true;
        default:
            return false;
    }
    auto& drag = static_cast<QDropEvent&>(*event);
    const bool taken = takes(*watched, drag);
    drag.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
    drag.setAccepted(taken);
    const auto files = drag.mimeData()->urls();
    if (!taken) {
        letGo();
    } else if (event->type() == QEvent::Drop) {
        drop(files, false);
    } else {
        hold({watched == parts_.window.exportTabButton() ? Over::tab : Over::tray, {}, files});
    }
    return true;
}

bool CarryIn::takes(const QObject& watched, const QDropEvent& drag) const {
    const auto at = drag.position().toPoint();
    const bool onRow =
        &watched != parts_.window.exportTabButton() &&
        std::ranges::any_of(parts_.rows.exports, [&](const auto& row) {
            return row->view() != nullptr && row->view()->parentWidget()->geometry().contains(at);
        });
    return !onRow && drag.possibleActions().testFlag(Qt::CopyAction) && anyAudio(drag.mimeData()->urls());
}

void CarryIn::heldOver(Slot& row, const QList<QUrl>& files) {
    if (files.isEmpty()) {
        letGo();
    } else {
        hold({Over::row, slotOf(row), files});
    }
}

void CarryIn::hold(const Hold& hold) {
    if (held_ == hold) {
        return;
    }
    const bool another = !held_ && parts_.environment.executor.now() - letGoSince_ > sameDrag;
    if (another || looks_ == nullptr || looks_->urls != hold.files) {
        looks_ = look(hold.files);
    }
    held_ = hold;
    ++rests_;
    if (hold.over == Over::tab) {
        parts_.environment.executor.mainAfter(rest, [this, life = std::weak_ptr(life_), turn = rests_] {
            if (!life.expired() && turn == rests_) {
                openTab();
            }
        });
    }
    refresh();
}

void CarryIn::letGo() {
    ++rests_;
    if (held_) {
        held_.reset();
        letGoSince_ = parts_.environment.executor.now();
        clear();
    }
}

void CarryIn::openTab() {
    parts_.questions.thenDo([this, life = std::weak_ptr(life_)] {
        if (!life.expired() && parts_.window.shield() == nullptr) {
            parts_.menu.close();
            parts_.presenter.showTab(Slot::exportContext);
        }
    });
}

std::shared_ptr<HeldFiles> CarryIn::look(const QList<QUrl>& files) {
    return lookAt(parts_.environment, files, [this, life = std::weak_ptr(life_)](const auto& looks) {
        if (!life.expired()) {
            looked(looks);
        }
    });
}

void CarryIn::looked(const std::shared_ptr<HeldFiles>& looks) {
    if (looks->dropped && looks->complete) {
        place(*looks);
    } else if (held_ && looks == looks_) {
        refresh();
    }
}

void CarryIn::drop(const QList<QUrl>& files, bool pasted) {
    const auto looks = looks_ != nullptr && looks_->urls == files && !pasted ? looks_ : look(files);
    looks_.reset();
    letGo();
    looks->pasted = pasted;
    looks->dropped = true;
    if (looks->complete) {
        place(*looks);
        return;
    }
    parts_.environment.executor.mainAfter(patience, [this, life = std::weak_ptr(life_), looks] {
        if (!life.expired() && looks->dropped) {
            place(*looks);  // what is not known yet shows in converting
        }
    });
}

void CarryIn::paste() {
    const auto* const clipboard = QGuiApplication::clipboard()->mimeData();
    const auto files = clipboard != nullptr ? clipboard->urls() : QList<QUrl>();
    if (!files.isEmpty()) {
        drop(files, true);
    }
}

void CarryIn::place(HeldFiles& looks) {
    looks.dropped = false;
    const CarryPlan plan(parts_.model, parts_.staging->freeRows(), looks.files);
    const bool known = parts_.model.table().complete;
    QList<QUrl> used;
    std::vector<SlotNumber> rows;
    std::vector<LeftOut> leftOut;
    for (std::size_t i = 0; i < looks.files.size(); ++i) {
        const auto& [fate, slot] = plan.places()[i];
        if (fate == CarryFate::unreadable || (fate == CarryFate::tooLong && known)) {
            leftOut.push_back({looks.files[i].name, plan.reason(i), looks.urls[static_cast<qsizetype>(i)]});
            continue;
        }
        used.push_back(looks.urls[static_cast<qsizetype>(i)]);
        if (slot) {
            rows.push_back(*slot);
        }
    }
    parts_.handedFiles.add(used, leftOut);
    openTab();
    if (looks.pasted && known && !rows.empty() && !plan.refuses()) {
        parts_.teller.tell(
            {.what = words(rows.size(), "%n file goes to %1", "%n files go to %1", loopNames(rows))});
    }
}

void CarryIn::refresh() {
    if (!held_ || looks_ == nullptr) {
        return;
    }
    if (held_->row) {
        showRow(*held_->row, *looks_);
    } else {
        showPlan(*looks_);
    }
}

void CarryIn::showRow(SlotNumber slot, const HeldFiles& looks) {
    const auto& file = looks.files.front();
    const auto fate = fateOn(parts_.model, slot, file);
    for (const auto& row : parts_.rows.exports) {
        row->setDropSign(slotOf(*row) == slot ? std::optional(signOf(file, fate, row->occupied()))
                                              : std::nullopt);
    }
    const auto count = looks.files.size();
    parts_.teller.preview(count == 1   ? std::string()
                          : count == 2 ? words("Drop between the rows to use both files")
                                       : words(count, "Drop between the rows to use the file",
                                               "Drop between the rows to use all %n files"));
}

void CarryIn::showPlan(const HeldFiles& looks) {
    std::vector<std::optional<DropSign>> signs(parts_.rows.exports.size());
    const CarryPlan plan(parts_.model, parts_.staging->freeRows(), looks.files);
    const bool known = parts_.model.table().complete;
    for (std::size_t i = 0; i < looks.files.size() && known; ++i) {
        if (const auto& [fate, slot] = plan.places()[i]; slot) {
            signs.at(slot->number() - 1U) = signOf(looks.files[i], fate, false);
        }
    }
    for (std::size_t i = 0; i < signs.size(); ++i) {
        parts_.rows.exports[i]->setDropSign(signs[i]);
    }
    if (!known) {
        parts_.teller.preview(
            words(looks.files.size(), "%n file will wait for a pedal", "%n files will wait for a pedal"));
    } else if (looks.complete) {  // before, the sum is not known
        parts_.teller.preview(plan.sentence(), plan.said(), plan.refuses());
    } else {
        parts_.teller.preview({});
    }
}

void CarryIn::clear() {
    for (const auto& row : parts_.rows.exports) {
        row->setDropSign(std::nullopt);
    }
    parts_.teller.preview({});
}

}  // namespace kzq
