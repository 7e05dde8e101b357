#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <vector>

namespace kzq::gallery {

/// One thing as it looks, at the device ratio that its pixmap carries.
struct Shot {
    QString caption;
    QPixmap pixmap;
};

using Shots = std::vector<Shot>;

void append(Shots& shots, Shots more);

/// The shots in rows on a ground of one colour, their captions beneath.
QImage contactSheet(const Shots& shots, const QColor& ground);

}  // namespace kzq::gallery
