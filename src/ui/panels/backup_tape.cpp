#include "ui/panels/backup_tape.h"

#include <QHelpEvent>

#include "ui/cut_tip.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"

namespace kzq {

namespace {

constexpr int betweenThem = 12;
constexpr QPointF tapeNameAt(16, 18);
constexpr int tapeDetailEnd = 338;
constexpr QPointF tapeChevron(352, 14);

}  // namespace

double roomForName(const BackupOffer& offer, double left, double right) {
    return right - advanceOf(offer.detail, textFont(12)) - betweenThem - left;
}

void writeOffer(ScaledPainter& painter, const BackupOffer& offer, QPointF baseline, double right,
                const QColor& nameColor, const QColor& detailColor) {
    painter.setType(textFont(12));
    painter.setPen(detailColor);
    painter.write(QPointF(right - painter.advance(offer.detail), baseline.y()), offer.detail);
    painter.setType(textFont());
    painter.setPen(nameColor);
    painter.writeName(baseline, offer.name, roomForName(offer, baseline.x(), right));
}

QString spokenOffer(const BackupOffer& offer) {
    return offer.detail.isEmpty()
               ? offer.name
               : toQt(words("%1, %2", offer.name.toStdString(), offer.detail.toStdString()));
}

BackupTape::BackupTape(QWidget* panel) : KeyButton(panel) {
    setProperty("focusRingRadius", 2);
    resize(tapeSize);
}

void BackupTape::show(const QString& what, const BackupOffer& offer) {
    shown_ = offer;
    callIt(*this, toQt(words("%1: %2", what.toStdString(), spokenOffer(offer).toStdString())));
    update();
}

bool BackupTape::event(QEvent* event) {
    return (event->type() == QEvent::ToolTip &&
            showIfCut(*this, static_cast<QHelpEvent&>(*event), shown_.name, textFont(),
                      roomForName(shown_, tapeNameAt.x(), tapeDetailEnd))) ||
           KeyButton::event(event);
}

void BackupTape::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawPicture(painter, "Backup_tape", painter.bounds());
    writeOffer(painter, shown_, tapeNameAt, tapeDetailEnd, Qt::black, lengthOnConsoleColor());
    painter.setPen(
        QPen(hovering() ? outlineColor() : QColor(Qt::black), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = tapeChevron;
    painter.drawPolyline(QPolygonF{at + QPointF(-4, -2), at + QPointF(0, 2), at + QPointF(4, -2)});
}

}  // namespace kzq
