#pragma once

#include <QColor>

#include "ui/palette.h"

namespace kzq::status {

// What the status line and its list have in common, in logical pixels.

constexpr int words = 12;        ///< the font
constexpr int height = 24;       ///< of the sentence and the links
constexpr int baseline = 16;     ///< in them
constexpr int mark = 16;         ///< the failure mark is a square
constexpr int chevronRoom = 40;  ///< from the end of the words to the right edge of the plate

inline QColor faintCream() {
    auto color = creamColor();
    color.setAlphaF(0.75F);
    return color;
}

}  // namespace kzq::status
