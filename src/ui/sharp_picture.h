#pragma once

#include <QByteArray>
#include <QSizeF>

namespace kzq {

/// The SVG of a picture with upright and level edges moved so that they fall on whole pixels when it is drawn
/// at `scale`, device pixels to one of its own in each direction. Rectangles and the straight parts of paths
/// move; lines of at most 2 become as many whole pixels as fit, at least 1. Circles, arcs, slants and
/// outlined words stay.
///
/// It knows what our pictures consist of: rect, circle and path, with absolute commands and no transforms.
QByteArray sharpPicture(const QByteArray& svg, QSizeF scale);

}  // namespace kzq
