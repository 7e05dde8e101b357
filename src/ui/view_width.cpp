#include "ui/view_width.h"

#include <algorithm>
#include <cmath>

#include "ui/scale.h"

namespace kzq {

double width(const QWidget& view) {
    return placeOf(view).width();
}

void setWidth(QWidget& view, double width) {
    constexpr double widest = QWIDGETSIZE_MAX;
    const auto whole = std::isnan(width) ? 0.0 : std::clamp(std::round(width), 0.0, widest);
    auto frame = placeOf(view);
    frame.setWidth(static_cast<int>(whole));
    place(view, frame);
}

}  // namespace kzq
