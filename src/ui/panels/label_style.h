#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>

#include "ui/scale.h"

namespace kzq {

/// Colour and font of a label, independent of the desktop's style.
inline void styleLabel(QLabel& label, const QColor& color, const QFont& font) {
    auto palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
    dress(label, font);
}

}  // namespace kzq
