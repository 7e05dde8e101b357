#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <vector>

namespace kzq::gallery {

/// A picture of one thing, at the device ratio of its pixmap.
struct Shot {
    QString caption;
    QPixmap pixmap;
};

using Shots = std::vector<Shot>;

void append(Shots& shots, Shots more);

/// The shots in rows on a background of one colour, with their captions below.
QImage contactSheet(const Shots& shots, const QColor& ground);

}  // namespace kzq::gallery
