#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>

#include "app/main_window.h"
#include "gallery/bystanders.h"
#include "slots/slot.h"
#include "ui/fonts.h"

namespace kzq {
namespace {

/// How bright it looks, from 0 to 1.
double luminance(QColor colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Of the lightest pixel in there to the darkest.
double contrastIn(const QImage& picture) {
    double lightest = 0;
    double darkest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto here = luminance(picture.pixelColor(x, y));
            lightest = std::max(lightest, here);
            darkest = std::min(darkest, here);
        }
    }
    return (lightest + 0.05) / (darkest + 0.05);
}

TEST(Contrast, NamesAtRestCanBeReadUnderTheShield) {
    gallery::StillApplication application;
    registerFonts();
    MainWindow window;
    auto* const place = window.findChild<QWidget*>("import slot 7");
    const auto row = Slot::slotNumber(7, Slot::importContext, application, place);
    row->setOccupied(true);
    row->refresh();
    window.show();
    const auto name = QRect(row->field()->mapTo(&window, QPoint()), row->field()->size());
    EXPECT_GE(contrastIn(window.grab(name).toImage()), 4.5);
    window.addShield();
    const auto washed = contrastIn(window.grab(name).toImage());
    EXPECT_GE(washed, 3.0);
    RecordProperty("contrast", std::to_string(washed));
}

}  // namespace
}  // namespace kzq
