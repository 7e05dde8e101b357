#pragma once

#include <QLabel>

namespace kzq {

/// Shows these lines in type of so many pixels, or smaller if they take more than `room`, in pixels of 100 %.
void setFitted(QLabel& label, const QString& lines, int pixels, int room);
/// The same in the label's place.
void setFitted(QLabel& label, const QString& lines, int pixels);

}  // namespace kzq
