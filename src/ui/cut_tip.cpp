#include "ui/cut_tip.h"

#include <QHelpEvent>
#include <QScreen>
#include <QToolTip>

#include "ui/scale.h"

namespace kzq {

namespace {

/// On one line, on several where the screen is too narrow for the desktop's type.
QString tipOf(const QString& whole, const QWidget& at) {
    const int room = at.screen()->availableGeometry().width() * 9 / 10;  // some is for its margins
    if (QFontMetrics(QToolTip::font()).horizontalAdvance(whole) <= room) {
        return Qt::convertFromPlainText(whole);
    }
    return "<p style=\"white-space: pre-wrap\">" + whole.toHtmlEscaped() + "</p>";
}

}  // namespace

bool showIfCut(QWidget& at, const QHelpEvent& event, const QString& whole, const QFont& type, double room) {
    if (advanceOf(whole, type) <= room) {
        return false;
    }
    const int line = QFontMetrics(fontOnScreen(type)).height();  // it stays while the pointer is about here
    QToolTip::showText(event.globalPos(), tipOf(whole, at), &at,
                       QRect(0, event.pos().y() - line / 2, at.width(), line));
    return true;
}

}  // namespace kzq
