#include "ui/status/spoken_words.h"

#include <QAccessible>

#include "ui/spoken.h"

namespace kzq {

SpokenWords::SpokenWords(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(0, 0, 1, 1);
}

void SpokenWords::say(const QString& words) {
    callIt(*this, words);
    if (isVisible()) {
        // Qt 6.4 passes no alerts on to AT-SPI; a notification that appears is what Orca reads out
        QAccessibleEvent appeared(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&appeared);
    }
}

void SpokenWords::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    callIt(*this, QString());
}

}  // namespace kzq
