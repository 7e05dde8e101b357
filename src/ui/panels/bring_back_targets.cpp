#include "ui/panels/bring_back_targets.h"

#include <QMouseEvent>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/bring_back_row.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

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

BringBackTargets::BringBackTargets(QWidget* panel) : PickList(panel) {
    resize(listSize);
}

void BringBackTargets::open(QPoint at, unsigned chosen, const std::set<unsigned>& loops,
                            const std::set<unsigned>& taken) {
    chosen_ = chosen;
    loops_ = loops;
    taken_ = taken;
    openAt({at, listSize});
    mark(chosen);
}

bool BringBackTargets::event(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        mark(0);
    }
    return PickList::event(event);
}

void BringBackTargets::mark(unsigned slot) {
    marked_ = taken_.contains(slot) ? 0 : slot;
    callIt(*this, marked_ == 0 ? toQt(words("Slots"))
                               : spokenTarget({.slot = marked_, .occupied = loops_.contains(marked_)}));
    update();
}

/// To the next that is not taken; nowhere if there is none in this direction.
void BringBackTargets::step(int by) {
    int slot = static_cast<int>(marked_ == 0 ? chosen_ : marked_);
    for (unsigned left = listedSlots; left != 0; --left) {
        slot = (slot - 1 + by + static_cast<int>(listedSlots)) % static_cast<int>(listedSlots) + 1;
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

void BringBackTargets::walk(int key) {
    switch (key) {
        case Qt::Key_Up:
            step(-1);
            break;
        case Qt::Key_Down:
            step(1);
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
            step(static_cast<int>(column));
            break;
        default:
            break;
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
    paintGround(painter);
    painter.setType(textFont());
    for (unsigned slot = 1; slot <= listedSlots; ++slot) {
        const auto entry = entryOf(slot);
        if (slot == marked_) {
            paintMark(painter, entry);
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
