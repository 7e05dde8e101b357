#pragma once

#include <QRectF>
#include <QString>

#include "ui/scaled_painter.h"

namespace kzq {

/// What an export row shows of a file that is held over the window: what it would become with it.
struct DropSign {
    enum class Kind : std::uint8_t { fills, replaces, refused };

    Kind kind = Kind::fills;
    QString name;     ///< of the file, without its ending
    QString length;   ///< "2:10"; empty if it is not known
    QString refusal;  ///< "too long", "not readable"; only if it is refused

    bool operator==(const DropSign&) const = default;
};

/// Its outline in `bounds`, the row's name field, with the words from `nameLeft` on.
void drawDropSign(ScaledPainter& painter, const QRectF& bounds, double nameLeft, const DropSign& sign);

}  // namespace kzq
