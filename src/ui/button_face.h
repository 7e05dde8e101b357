#pragma once

#include <QColor>
#include <QString>

#include "ui/scaled_painter.h"

namespace kzq {

/// The painted face of a button with a text label.
struct ButtonFace {
    QColor top;
    QColor foot;
    QColor lip;  ///< its front edge, below the face
    QColor word;
    int lipHeight = 4;  ///< less when pressed: the face lies lower by the rest; 0 when flat
};

enum class ButtonState { off, hover, down, disabled };

ButtonFace brownFace(ButtonState state);
ButtonFace creamFace(ButtonState state);
ButtonFace greenFace(ButtonState state);
ButtonFace blueFace(ButtonState state);

/// Draws the face over `bounds`, with `word` in the middle of its upper side.
void drawButtonFace(ScaledPainter& painter, const QRect& bounds, const ButtonFace& face, const QString& word);

/// How wide it is with `word` in full size, at 100 %.
int faceWidth(const QString& word);

/// Where the middle of that side is: it lies lower when pressed.
double upperMiddle(const QRect& bounds, const ButtonFace& face);

}  // namespace kzq
