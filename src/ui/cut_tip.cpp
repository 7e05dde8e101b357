#include "ui/cut_tip.h"

#include <QHelpEvent>
#include <QToolTip>

#include "ui/scale.h"

namespace kzq {

bool showIfCut(QWidget& at, const QHelpEvent& event, const QString& whole, const QFont& type, double room) {
    if (advanceOf(whole, type) <= room) {
        return false;
    }
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(whole), &at);
    return true;
}

}  // namespace kzq
