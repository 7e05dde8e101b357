#include "ui/drag_files.h"

#include <QDrag>
#include <QMimeData>
#include <QWidget>

namespace kzq {

bool dragFiles(QWidget& source, const QList<QUrl>& files, const QPixmap& picture, QPoint hotSpot) {
    auto* const data = new QMimeData;  // NOLINT(cppcoreguidelines-owning-memory): the drag's
    data->setUrls(files);
    auto* const drag = new QDrag(&source);  // NOLINT(cppcoreguidelines-owning-memory): deletes itself
    drag->setMimeData(data);
    drag->setPixmap(picture);
    drag->setHotSpot(hotSpot);
    return drag->exec(Qt::CopyAction, Qt::CopyAction) == Qt::CopyAction;
}

}  // namespace kzq
