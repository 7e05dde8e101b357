#include "ui/panels/bring_back_targets.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/bring_back_row.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr unsigned listedSlots = 20;
constexpr unsigned column = 10;
constexpr int entryPitch = 22;
constexpr int entryWidth = 76;
constexpr int firstTop = 11;
constexpr int gapAfterFive = 8;
constexpr int columnPitch = 78;

QRect entryOf(unsigned slot) {
    const int row = static_cast<int>((slot - 1) % column);
    const int right = slot > column ? columnPitch : 0;
    return {8 + right, firstTop + row * entryPitch + (row >= 5 ? gapAfterFive : 0), entryWidth, entryPitch};
}

/// `point` at 100 %.
unsigned slotAt(QPointF point) {
    unsigned slot = listedSlots;
    while (slot != 0 && !QRectF(entryOf(slot)).contains(point)) {
        --slot;
    }
    return slot;
}

}  // namespace

BringBackTargets::BringBackTargets(QWidget* panel) : QWidget(panel) {
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    resize(listSize);
    hide();
}

void BringBackTargets::open(QPoint at, unsigned chosen, const std::set<unsigned>& loops,
                            const std::set<unsigned>& taken) {
    chosen_ = chosen;
    loops_ = loops;
    taken_ = taken;
    before_ = window()->focusWidget();
    place(*this, {at, listSize});
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
    mark(chosen);
    qApp->installEventFilter(this);
}

void BringBackTargets::close() {
    if (!isVisible()) {
        return;
    }
    qApp->removeEventFilter(this);
    hide();
    if (before_ != nullptr) {
        before_->setFocus(Qt::PopupFocusReason);
    }
}

bool BringBackTargets::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != this) {
        close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool BringBackTargets::event(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        mark(0);
    } else if (event->type() == QEvent::MouseButtonPress) {
        event->accept();  // or the panel would get it, as one outside
        return true;
    }
    return QWidget::event(event);
}

void BringBackTargets::mark(unsigned slot) {
    marked_ = taken_.contains(slot) ? 0 : slot;
    setAccessibleName(marked_ == 0 ? toQt(words("Slots"))
                                   : spokenTarget({.slot = marked_, .occupied = loops_.contains(marked_)}));
    update();
}

/// To the next that is not taken; nowhere if there is none in this direction.
void BringBackTargets::walk(int step) {
    int slot = static_cast<int>(marked_ == 0 ? chosen_ : marked_);
    for (unsigned left = listedSlots; left != 0; --left) {
        slot = (slot - 1 + step + static_cast<int>(listedSlots)) % static_cast<int>(listedSlots) + 1;
        if (!taken_.contains(static_cast<unsigned>(slot))) {
            mark(static_cast<unsigned>(slot));
            return;
        }
    }
}

void BringBackTargets::choose(unsigned slot) {
    if (slot != 0 && !taken_.contains(slot)) {
        close();
        Q_EMIT chosen(slot);
    }
}

void BringBackTargets::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            walk(-1);
            break;
        case Qt::Key_Down:
            walk(1);
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            walk(static_cast<int>(column));
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            choose(marked_);
            break;
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            close();
            break;
        default:
            break;  // nothing behind the list gets a key while it is open
    }
}

void BringBackTargets::mouseMoveEvent(QMouseEvent* event) {
    mark(slotAt(event->position() / scaleOf(*this)));
}

void BringBackTargets::mouseReleaseEvent(QMouseEvent* event) {
    choose(slotAt(event->position() / scaleOf(*this)));
}

void BringBackTargets::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    const auto bounds = painter.bounds();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(outlineColor());
    painter.drawRoundedRect(bounds, 8, 8);
    painter.setBrush(panelColor());
    painter.drawRoundedRect(bounds.adjusted(2, 2, -2, -2), 6, 6);
    painter.setType(textFont());
    for (unsigned slot = 1; slot <= listedSlots; ++slot) {
        const auto entry = entryOf(slot);
        if (slot == marked_) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(255, 255, 255, 43));
            painter.drawRoundedRect(entry, 4, 4);
        }
        const bool chosen = slot == chosen_;
        painter.setOpacity(taken_.contains(slot) ? 0.4 : 1);
        painter.setPen(chosen ? exportColor() : KZQWhite());
        painter.write(QRect(entry.x(), entry.y() + 4, 20, 17), Qt::AlignRight | Qt::AlignTop,
                      QString::number(slot));
        drawPicture(painter,
                    chosen                  ? "Target_chosen"
                    : loops_.contains(slot) ? "Target_loop"
                                            : "Target_none",
                    QRect(entry.x() + 30, entry.y() + 3, 16, 16));
        painter.setOpacity(1);
    }
}

}  // namespace kzq
