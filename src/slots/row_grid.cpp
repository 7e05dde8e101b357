#include "slots/row_grid.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <algorithm>
#include <utility>

#include "slots/slot.h"
#include "ui/accessible_controls.h"

namespace kzq {

namespace {

constexpr std::size_t leftColumn = 10;

bool canBeUsed(const Slot& row) {
    return row.view() != nullptr && row.button() != nullptr && row.button()->isEnabled();
}

QWidget* nameOrX(const Slot& row) {
    return row.isExport() ? static_cast<QWidget*>(row.x()) : row.field();
}

/// What can have the focus, from left to right.
std::vector<QWidget*> partsOf(const Slot& row) {
    std::vector<QWidget*> parts{row.ring(), row.button(), nameOrX(row), row.compare()};
    std::erase_if(
        parts, [](const QWidget* part) { return part == nullptr || !part->isEnabled() || part->isHidden(); });
    return parts;
}

/// The part of `to` that `at` is of `from`.
QWidget* samePart(const QWidget& at, const Slot& from, const Slot& to) {
    auto* const other = nameOrX(to);
    return &at == nameOrX(from) && other != nullptr && !other->isHidden() ? other : to.button();
}

std::optional<RowStep> stepOf(int key) {
    switch (key) {
        case Qt::Key_Up:
            return RowStep::up;
        case Qt::Key_Down:
            return RowStep::down;
        case Qt::Key_Home:
            return RowStep::home;
        case Qt::Key_End:
            return RowStep::end;
        case Qt::Key_PageUp:
            return RowStep::pageUp;
        case Qt::Key_PageDown:
            return RowStep::pageDown;
        case Qt::Key_Left:
        case Qt::Key_Right:
            return RowStep::beside;
        default:
            return std::nullopt;
    }
}

}  // namespace

RowGrid::RowGrid(Rows rows) : rows_(std::move(rows)) {
    for (const auto* const row : rows_) {
        for (QWidget* const part :
             std::initializer_list<QWidget*>{row->view(), row->ring(), row->button(), row->background(),
                                             row->x(), row->field(), row->compare()}) {
            part->installEventFilter(this);
        }
        for (QWidget* const part :
             std::initializer_list<QWidget*>{row->ring(), row->button(), nameOrX(*row), row->compare()}) {
            part->setProperty(reachedByArrows, true);
        }
    }
    settle();
}

Slot* RowGrid::rowOf(const QObject* part) const {
    const auto found = std::ranges::find_if(rows_, [part](const Slot* row) {
        return row->view() != nullptr && (part == row->view() || part->parent() == row->view());
    });
    return found == rows_.end() ? nullptr : *found;
}

std::size_t RowGrid::indexOf(const Slot& row) const {
    return static_cast<std::size_t>(std::ranges::find(rows_, &row) - rows_.begin());
}

UsableRows RowGrid::usable() const {
    UsableRows usable;
    for (const auto* const row : rows_) {
        usable.push_back(canBeUsed(*row));
    }
    return usable;
}

const Slot* RowGrid::rowBehind(RowStep step, const Slot& from) const {
    const auto row = kzq::rowBehind(step, indexOf(from), usable());
    return row ? rows_[*row] : nullptr;
}

Slot* RowGrid::focused() const {
    const auto* const at = QApplication::focusWidget();
    const auto shows = [](const Slot& row) { return row.view() != nullptr && row.view()->isVisible(); };
    if (at == nullptr || qobject_cast<const QMenuBar*>(at) != nullptr) {
        const auto edited = std::ranges::find_if(rows_, [&](const Slot* row) {
            return shows(*row) && row->field() != nullptr && row->field()->currentEditor() != nullptr;
        });
        if (at != nullptr && edited != rows_.end()) {
            return *edited;
        }
        return left_ != nullptr && shows(*left_) ? left_.data() : nullptr;
    }
    const auto found = std::ranges::find_if(
        rows_, [&](const Slot* row) { return shows(*row) && row->view()->isAncestorOf(at); });
    return found == rows_.end() ? nullptr : *found;
}

bool RowGrid::eventFilter(QObject* watched, QEvent* event) {
    auto* const row = rowOf(watched);
    if (row == nullptr) {
        return false;  // the views are going
    }
    auto& part = static_cast<QWidget&>(*watched);
    switch (event->type()) {
        case QEvent::KeyPress:
            return pressed(*row, part, static_cast<const QKeyEvent&>(*event));
        case QEvent::FocusIn:
            used(&part == row->ring() || &part == row->compare() ? *row->button() : part);
            break;
        case QEvent::FocusOut: {
            const auto reason = static_cast<const QFocusEvent&>(*event).reason();
            left_ = reason == Qt::MenuBarFocusReason || reason == Qt::PopupFocusReason ? row : nullptr;
            break;
        }
        case QEvent::MouseButtonPress:
            if (canBeUsed(*row)) {
                used(*row->button());
            }
            break;
        case QEvent::EnabledChange:
        case QEvent::Show:
        case QEvent::Hide:
            settle();
            break;
        default:
            break;
    }
    return false;
}

// --- Tab

/// The only part that Tab stops at.
QWidget* RowGrid::stop() const {
    const auto* row = last_ != nullptr ? rowOf(last_) : nullptr;
    if (row != nullptr && canBeUsed(*row) && last_->isEnabled() && !last_->isHidden()) {
        return last_;
    }
    if (row == nullptr || !canBeUsed(*row)) {
        const auto at = row == nullptr ? 0 : indexOf(*row);
        auto next = kzq::rowBehind(row == nullptr ? RowStep::home : RowStep::down, at, usable());
        next = next ? next : kzq::rowBehind(RowStep::up, at, usable());
        row = next ? rows_[*next] : nullptr;
    }
    return row != nullptr ? row->button() : nullptr;
}

void RowGrid::settle() {
    const auto* const only = stop();
    for (const auto* const row : rows_) {
        for (QWidget* const part : std::initializer_list<QWidget*>{row->button(), nameOrX(*row)}) {
            if (part != nullptr) {
                part->setFocusPolicy(part == only ? Qt::TabFocus : Qt::NoFocus);
            }
        }
    }
}

void RowGrid::used(QWidget& part) {
    if (!moving_) {
        endRange();
    }
    last_ = &part;
    settle();
}

// --- the keys

void RowGrid::moveTo(QWidget* part) {
    if (part != nullptr) {
        moving_ = true;
        part->setFocus(Qt::TabFocusReason);
        moving_ = false;
    }
}

const Slot* RowGrid::otherColumn(const Slot& row, bool right) const {
    return (indexOf(row) < leftColumn) == right ? rowBehind(RowStep::beside, row) : nullptr;
}

/// Null at the edge.
QWidget* RowGrid::beside(const Slot& row, const QWidget& at, bool right) const {
    const auto parts = partsOf(row);
    const auto found = std::ranges::find(parts, &at);
    if (found != parts.end() && right && std::next(found) != parts.end()) {
        return *std::next(found);
    }
    if (found != parts.end() && !right && found != parts.begin()) {
        return *std::prev(found);
    }
    const auto* const other = otherColumn(row, right);
    if (other == nullptr) {
        return nullptr;
    }
    return right ? other->button() : partsOf(*other).back();
}

bool RowGrid::pressed(Slot& row, QWidget& at, const QKeyEvent& event) {
    if (row.field() != nullptr && row.field()->currentEditor() != nullptr) {
        return false;
    }
    const auto key = event.key();
    if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && (&at == row.ring() || &at == row.compare())) {
        row.button()->setFocus(Qt::TabFocusReason);  // which is where it goes on from
        return false;
    }
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::ControlModifier);
    if (modifiers != Qt::NoModifier && modifiers != Qt::ShiftModifier) {
        return false;
    }
    return walked(row, at, key, modifiers == Qt::ShiftModifier && !row.isExport());
}

/// Whether it is one of these keys.
bool RowGrid::walked(const Slot& row, QWidget& at, int key, bool picks) {
    const auto step = stepOf(key);
    if (!step) {
        return false;
    }
    const bool right = key == Qt::Key_Right;
    if (*step == RowStep::beside && !picks) {
        moveTo(beside(row, at, right));
        return true;
    }
    const auto* const there = *step == RowStep::beside ? otherColumn(row, right) : rowBehind(*step, row);
    const auto& to = there != nullptr ? *there : row;
    if (picks) {
        anchor_ = anchor_.value_or(indexOf(row));
        pickTo(to);
    } else {
        endRange();
    }
    moveTo(samePart(at, row, to));
    return true;
}

// --- ranges

void RowGrid::endRange() {
    anchor_.reset();
    picked_.clear();
}

void RowGrid::pickTo(const Slot& row) {
    const auto [first, last] = std::minmax({*anchor_, indexOf(row)});
    picking_ = true;
    for (std::size_t index = 0; index < rows_.size(); ++index) {
        pick(index, first <= index && index <= last);
    }
    picking_ = false;
}

void RowGrid::pick(std::size_t index, bool within) {
    auto& row = *rows_[index];
    if (within && canBeUsed(row) && !row.selected()) {
        row.button()->click();
        picked_.insert(index);
    } else if (!within && picked_.erase(index) != 0 && row.selected() && !row.customImportName()) {
        row.button()->click();
    }
}

}  // namespace kzq
