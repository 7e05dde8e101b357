#pragma once

#include <QList>
#include <QPixmap>
#include <QUrl>

class QWidget;

namespace kzq {

/// Lets the user drag files out of `source` while the left button is down, to be copied and never moved.
/// `hotSpot` is where the pointer is in `picture`. Returns whether they were taken. Runs an event loop. Main
/// thread.
bool dragFiles(QWidget& source, const QList<QUrl>& files, const QPixmap& picture, QPoint hotSpot);

}  // namespace kzq
