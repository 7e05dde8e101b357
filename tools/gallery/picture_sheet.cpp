#include "picture_sheet.h"

#include <QDir>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace kzq::gallery {

namespace {

constexpr int margin = 16;
constexpr int labelHeight = 18;
constexpr int sheetWidth = 1024;

struct Placed {
    QString name;
    QRectF place;
};

QSizeF pictureSize(const QString& name) {
    return QSvgRenderer(":/pictures/" + name).defaultSize();
}

/// Rows from left to right; a picture's column is as wide as the larger of itself and its name.
std::vector<Placed> layOut(const QStringList& names, const QFontMetricsF& metrics, double& height) {
    std::vector<Placed> placed;
    double x = margin;
    double y = margin;
    double row = 0;
    for (const auto& name : names) {
        const auto size = pictureSize(name);
        const double width = std::max(size.width(), metrics.horizontalAdvance(name)) + margin;
        if (x + width > sheetWidth && x > margin) {
            x = margin;
            y += row + labelHeight + margin;
            row = 0;
        }
        placed.push_back({name, {{x, y}, size}});
        x += 2 * std::ceil(width / 2);  // even places, as in the window, so that 1.5 falls on whole pixels
        row = std::max(row, size.height());
    }
    height = y + row + labelHeight + margin;
    return placed;
}

QImage draw(const QStringList& names, double scale, const QColor& ground) {
    QFont font;
    font.setPixelSize(10);
    double height = 0;
    const auto placed = layOut(names, QFontMetricsF(font), height);
    QImage image((QSizeF(sheetWidth, height) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(ground);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font);
    painter.setPen(QColor(0xAA, 0xA2, 0xA2));
    for (const auto& [name, place] : placed) {
        QSvgRenderer(":/pictures/" + name).render(&painter, place);
        painter.drawText(QPointF(place.x(), place.bottom() + 13), name.chopped(4));
    }
    return image;
}

/// The application's icon at the sizes desktops ask for, on a dark and on a light panel.
QImage icons(double scale) {
    const auto sizes = {16, 22, 24, 32, 48, 64, 128};
    QImage image((QSizeF(480, 320) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(QColor(0x22, 0x25, 0x2A));
    QPainter painter(&image);
    painter.fillRect(0, 160, 480, 160, QColor(0xE8, 0xEA, 0xED));
    QSvgRenderer icon(QString(":/pictures/Icon.svg"));
    int x = margin;
    for (const int size : sizes) {
        icon.render(&painter, QRectF(x, margin, size, size));
        icon.render(&painter, QRectF(x, margin + 160, size, size));
        x += size + margin;
    }
    return image;
}

}  // namespace

std::vector<Sheet> pictureSheets(double scale) {
    const auto names = QDir(":/pictures").entryList(QDir::Files, QDir::Name);
    QStringList small;
    QStringList large;
    for (const auto& name : names) (pictureSize(name).height() < 100 ? small : large) << name;
    return {{"pictures-on-tray", draw(small, scale, QColor(0x1F, 0x10, 0x10))},
            {"pictures-on-plate", draw(small, scale, QColor(0x2B, 0x17, 0x17))},
            {"pictures-large", draw(large, scale, QColor(0xD5, 0xD8, 0xDD))},
            {"icon", icons(scale)}};
}

}  // namespace kzq::gallery
