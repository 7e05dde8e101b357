#pragma once

#include <QWidget>

namespace kzq {

/// Width of the view in pixels of 100 %.
double width(const QWidget& view);
/// Sets the width, rounded; position and height stay. Below 0 and not a number count as 0.
void setWidth(QWidget& view, double width);

}  // namespace kzq
