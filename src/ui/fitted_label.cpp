#include "ui/fitted_label.h"

#include <algorithm>

#include "ui/scale.h"

namespace kzq {

namespace {

constexpr int smallestLabelType = 8;

bool fitsInto(int room, const QString& lines, const QFont& font) {
    return std::ranges::all_of(lines.split('\n'),
                               [&](const QString& line) { return advanceOf(line, font) <= room; });
}

}  // namespace

void setFitted(QLabel& label, const QString& lines, int pixels, int room) {
    auto font = fontOf(label);
    font.setPixelSize(pixels);
    while (font.pixelSize() > smallestLabelType && !fitsInto(room, lines, font)) {
        font.setPixelSize(font.pixelSize() - 1);
    }
    if (font != fontOf(label)) {
        dress(label, font);
    }
    label.setText(lines);
}

void setFitted(QLabel& label, const QString& lines, int pixels) {
    setFitted(label, lines, pixels, placeOf(label).width());
}

}  // namespace kzq
