#pragma once

#include <QColor>
#include <QStringList>
#include <QWidget>
#include <vector>

#include "ui/pictures.h"

namespace kzq {

/// An English word that stands in a picture as outlines. tools/pictures writes all this into the picture.
struct PictureWord {
    QString english;
    QPointF at;  ///< its left end, on its baseline
    int size = 0;
    bool regular = false;  ///< and not Medium
    QColor color;
    double from = 0;  ///< where another word may begin …
    double to = 0;    ///< … and must end
    /// The left end of the mark before it, if both are in the middle together.
    std::optional<double> group;
};

/// In the order in which they are drawn.
std::vector<PictureWord> wordsIn(const QString& picture);

/// Draws the picture over the widget, at the size at which it is shown, with `words` in the place of its own:
/// if there are none or they are the same, as it is. A word that is too long is set smaller.
void drawWorded(QWidget& widget, const QString& picture, const QStringList& words, const QColor& tint = {});

}  // namespace kzq
