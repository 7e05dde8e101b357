#include "picture_shots.h"

#include <QDir>
#include <QPainter>
#include <functional>

#include "ui/pictures.h"

namespace kzq::gallery {

namespace {

constexpr int smallHeight = 100;

QPixmap drawn(const QString& name, const QSizeF& size, double ratio) {
    QPixmap pixmap((size * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawPicture(painter, name, {{0, 0}, size});
    return pixmap;
}

Shots pictures(double ratio, const std::function<bool(const QSizeF&)>& wanted) {
    Shots shots;
    for (const auto& file : QDir(":/pictures").entryList({"*.svg"}, QDir::Files, QDir::Name)) {
        const auto name = file.chopped(4);
        const auto size = picture(name).value_or(Picture{}).size;
        if (wanted(size)) {
            shots.push_back({name, drawn(name, size, ratio)});
        }
    }
    return shots;
}

}  // namespace

Shots smallPictures(double ratio) {
    return pictures(ratio, [](const QSizeF& size) { return size.height() < smallHeight; });
}

Shots largePictures(double ratio) {
    return pictures(ratio, [](const QSizeF& size) { return size.height() >= smallHeight; });
}

Shots icons(double ratio) {
    Shots shots;
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        shots.push_back({QString::number(size), drawn("Icon", QSizeF(size, size), ratio)});
    }
    return shots;
}

}  // namespace kzq::gallery
