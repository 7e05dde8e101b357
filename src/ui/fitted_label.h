#pragma once

#include <QLabel>

namespace kzq {

/// Shows these lines in the label's place, in type of so many pixels, or smaller if it takes more than that.
void setFitted(QLabel& label, const QString& lines, int pixels);

}  // namespace kzq
