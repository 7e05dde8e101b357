#include "contact_sheet.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include "ui/fonts.h"
#include "ui/palette.h"

namespace kzq::gallery {

namespace {

constexpr int margin = 16;
constexpr int captionHeight = 18;
constexpr int captionPixels = 11;
constexpr int sheetWidth = 1024;

/// Even positions, as in the window, so that 1.5 gives whole device pixels.
int even(double length) {
    return 2 * static_cast<int>(std::ceil(length / 2));
}

std::vector<QPoint> layOut(const Shots& shots, int& height) {
    const QFontMetricsF metrics(textFont(captionPixels));
    std::vector<QPoint> places;
    QPoint next(margin, margin);
    int row = 0;
    for (const auto& shot : shots) {
        const auto size = shot.pixmap.deviceIndependentSize();
        const int width = even(std::max(size.width(), metrics.horizontalAdvance(shot.caption)));
        if (next.x() > margin && next.x() + width + margin > sheetWidth) {
            next = {margin, next.y() + row + captionHeight + margin};
            row = 0;
        }
        places.push_back(next);
        next.rx() += width + margin;
        row = std::max(row, even(size.height()));
    }
    height = next.y() + row + captionHeight + margin;
    return places;
}

}  // namespace

void append(Shots& shots, Shots more) {
    std::move(more.begin(), more.end(), std::back_inserter(shots));
}

QImage contactSheet(const Shots& shots, const QColor& ground) {
    int height = 0;
    const auto places = layOut(shots, height);
    const double ratio = shots.empty() ? 1 : shots.front().pixmap.devicePixelRatio();
    QImage sheet((QSizeF(sheetWidth, height) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    sheet.setDevicePixelRatio(ratio);
    sheet.fill(ground);
    QPainter painter(&sheet);
    painter.setFont(textFont(captionPixels));
    painter.setPen(KZQGray());
    for (std::size_t i = 0; i < shots.size(); ++i) {
        const auto& pixmap = shots[i].pixmap;
        painter.drawPixmap(places[i], pixmap);
        painter.drawText(places[i] + QPointF(0, pixmap.deviceIndependentSize().height() + captionPixels + 2),
                         shots[i].caption);
    }
    return sheet;
}

}  // namespace kzq::gallery
