#include "ui/panels/backup_list.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "ui/cut_tip.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

constexpr int listWidth = 372;
constexpr int offerPitch = 34;
constexpr int aboveOffers = 8;
constexpr int mostOffers = 11;  // that fit into the panel
constexpr int offerNameX = 38;
constexpr int offerDetailEnd = 354;
constexpr int offerBaseline = 20;  // from the top of its plate

}  // namespace

BackupList::BackupList(QWidget* panel) : PickList(panel) {}

void BackupList::open(QPoint at, std::vector<BackupOffer> offers, std::size_t chosen) {
    offers_ = std::move(offers);
    chosen_ = static_cast<int>(chosen);
    first_ = 0;
    openAt({at, QSize(listWidth, 2 * aboveOffers + shownCount() * offerPitch)});
    mark(std::min(chosen_, static_cast<int>(offers_.size()) - 1));
}

int BackupList::shownCount() const {
    return std::min(static_cast<int>(offers_.size()), mostOffers);
}

/// `point` at 100 %; -1 for none.
int BackupList::offerAt(QPointF point) const {
    const auto row = static_cast<int>((point.y() - aboveOffers) / offerPitch);
    const bool inside =
        point.y() >= aboveOffers && row < shownCount() && point.x() >= 0 && point.x() < listWidth;
    return inside ? first_ + row : -1;
}

void BackupList::mark(int offer) {
    marked_ = offer;
    if (offer >= 0) {
        first_ = std::clamp(first_, offer - shownCount() + 1, offer);
        callIt(*this, spokenOffer(offers_.at(static_cast<std::size_t>(offer))));
    }
    update();
}

void BackupList::step(int by) {
    mark(std::clamp((marked_ < 0 ? chosen_ : marked_) + by, 0, static_cast<int>(offers_.size()) - 1));
}

void BackupList::scroll(int step) {
    first_ = std::clamp(first_ + step, 0, static_cast<int>(offers_.size()) - shownCount());
    marked_ = -1;
    update();
}

void BackupList::choose(int offer) {
    if (offer >= 0) {
        close();
        Q_EMIT chosen(static_cast<std::size_t>(offer));
    }
}

void BackupList::walk(int key) {
    switch (key) {
        case Qt::Key_Up:
            step(-1);
            break;
        case Qt::Key_Down:
            step(1);
            break;
        case Qt::Key_Home:
            mark(0);
            break;
        case Qt::Key_End:
            mark(static_cast<int>(offers_.size()) - 1);
            break;
        default:
            break;
    }
}

bool BackupList::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const int at = offerAt(QPointF(help.pos()) / scaleOf(*this));
        if (at >= 0) {
            const auto& offer = offers_.at(static_cast<std::size_t>(at));
            return showIfCut(*this, help, offer.name, textFont(),
                             roomForName(offer, offerNameX, offerDetailEnd));
        }
    }
    return PickList::event(event);
}

void BackupList::mouseMoveEvent(QMouseEvent* event) {
    mark(offerAt(event->position() / scaleOf(*this)));
}

void BackupList::mouseReleaseEvent(QMouseEvent* event) {
    choose(offerAt(event->position() / scaleOf(*this)));
}

void BackupList::wheelEvent(QWheelEvent* event) {
    scroll(event->angleDelta().y() > 0 ? -1 : 1);
    event->accept();
}

void BackupList::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    paintGround(painter);
    for (int offer = first_; offer < first_ + shownCount(); ++offer) {
        paintOffer(painter, offer);
    }
    if (const auto count = static_cast<int>(offers_.size()); count > shownCount()) {
        const double room = painter.bounds().height() - 2 * aboveOffers;
        painter.setPen(Qt::NoPen);
        painter.setBrush(outlineColor());
        painter.drawRoundedRect(
            QRectF(listWidth - 11, aboveOffers + room * first_ / count, 6, room * shownCount() / count), 3,
            3);
    }
}

void BackupList::paintOffer(ScaledPainter& painter, int offer) const {
    const auto& shown = offers_.at(static_cast<std::size_t>(offer));
    const QRect plate(12, aboveOffers + (offer - first_) * offerPitch, listWidth - 24, offerPitch - 2);
    if (offer == marked_) {
        paintMark(painter, plate);
        painter.fill(QRectF(6, plate.y() + 6, 2, 20), creamColor());
    }
    if (offer == chosen_) {
        painter.setPen(QPen(creamColor(), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF at(19, plate.y() + 16);
        painter.drawPolyline(QPolygonF{at, at + QPointF(3, 3), at + QPointF(9, -4)});
    }
    writeOffer(painter, shown, {offerNameX, static_cast<double>(plate.y() + offerBaseline)}, offerDetailEnd,
               shown.usable ? KZQWhite() : disabledWordColor(), shown.usable ? KZQGray() : KZQYellow());
}

}  // namespace kzq
