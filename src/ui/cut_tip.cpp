#include "ui/cut_tip.h"

#include <QHelpEvent>
#include <QToolTip>

#include "ui/scale.h"

namespace kzq {

bool showIfCut(QWidget& at, const QHelpEvent& event, const QString& whole, const QFont& type, double room) {
    if (advanceOf(whole, type) <= room) {
        return false;
    }
    const int line = QFontMetrics(fontOnScreen(type)).height();  // it stays while the pointer is about here
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(whole), &at,
                       QRect(0, event.pos().y() - line / 2, at.width(), line));
    return true;
}

}  // namespace kzq
