#pragma once

#include <QFontMetricsF>
#include <QString>

namespace kzq {

/// `text` in `width` pixels: cut at its end, with "…" right where it is cut, even if it runs from right to
/// left there. `within`: the direction of the line that it is drawn in.
QString cutText(const QString& text, const QFontMetricsF& metrics, double width, Qt::LayoutDirection within);

}  // namespace kzq
