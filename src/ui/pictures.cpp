#include "ui/pictures.h"

#include <QFile>
#include <QHash>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <cmath>

#include "ui/scaled_painter.h"
#include "ui/sharp_picture.h"

namespace kzq {

namespace {

constexpr double smallest = 0.7;           // of a picture; icons may be smaller, and are for the eye to judge
constexpr int cacheKilobytes = 48 * 1024;  // the plate at 2x is 6 MB

QString pathOf(const QString& name) {
    return ":/pictures/" + name + ".svg";
}

/// Device pixels per logical pixel, with what the painter is scaled by.
QSizeF scaleOf(const QPainter& painter) {
    const auto transform = painter.deviceTransform();
    return {std::hypot(transform.m11(), transform.m12()), std::hypot(transform.m21(), transform.m22())};
}

/// The words and marks of a picture have a class that says so.
QByteArray partOf(const QByteArray& svg, PicturePart part) {
    if (part == PicturePart::whole) {
        return svg;
    }
    QByteArray result;
    QXmlStreamReader reader(svg);
    QXmlStreamWriter writer(&result);
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        reader.readNext();
        const auto name = reader.name();
        const auto kind = reader.attributes().value("class");
        const bool shape =
            name == QLatin1String("path") || name == QLatin1String("rect") || name == QLatin1String("circle");
        if (reader.isStartElement() && shape &&
            (part == PicturePart::mark ? kind != u"mark" : !kind.isEmpty())) {
            reader.skipCurrentElement();
        } else if (reader.isStartElement()) {
            writer.writeStartElement(name.toString());
            writer.writeAttributes(reader.attributes());
        } else if (reader.isEndElement()) {
            writer.writeEndElement();
        }
    }
    return result;
}

/// Its SVG, for drawing it in so many pixels.
QByteArray contentOf(const QString& name, QSize pixels, PicturePart part) {
    QFile file(pathOf(name));
    const auto svg = file.open(QIODevice::ReadOnly) ? partOf(file.readAll(), part) : QByteArray();
    const auto size = picture(name)->size;
    const QSizeF scale(pixels.width() / size.width(), pixels.height() / size.height());
    return (isWhole(scale.width()) && isWhole(scale.height())) || scale.width() < smallest
               ? svg
               : sharpPicture(svg, scale);
}

QPixmap rendered(const QString& name, QSize pixels, PicturePart part) {
    static const bool once = [] {
        QPixmapCache::setCacheLimit(cacheKilobytes);
        return true;
    }();
    static_cast<void>(once);
    const auto key =
        QString("%1 %2x%3 %4").arg(name).arg(pixels.width()).arg(pixels.height()).arg(static_cast<int>(part));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(pixels);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        QSvgRenderer(contentOf(name, pixels, part)).render(&painter, QRectF({0, 0}, QSizeF(pixels)));
        painter.end();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

}  // namespace

std::optional<Picture> picture(const QString& name) {
    static QHash<QString, QSizeF> sizes;  // empty: no such picture
    auto known = sizes.constFind(name);
    if (known == sizes.constEnd()) {
        const auto path = pathOf(name);
        const auto size =
            !name.isEmpty() && QFile::exists(path) ? QSizeF(QSvgRenderer(path).defaultSize()) : QSizeF();
        known = sizes.insert(name, size);
    }
    if (known->isEmpty()) {
        return std::nullopt;
    }
    return Picture{name, *known};
}

bool drawPicture(QPainter& painter, const QString& name, const QRectF& target, const QColor& tint,
                 PicturePart part) {
    if (target.isEmpty() || !picture(name)) {
        return false;
    }
    const auto scale = scaleOf(painter);
    const QSize pixels(static_cast<int>(std::lround(target.width() * scale.width())),
                       static_cast<int>(std::lround(target.height() * scale.height())));
    if (pixels.isEmpty()) {
        return false;
    }
    auto pixmap = rendered(name, pixels, part);
    if (tint.isValid()) {
        QPainter over(&pixmap);
        over.setCompositionMode(QPainter::CompositionMode_SourceAtop);
        over.fillRect(pixmap.rect(), tint);
    }
    // one pixel of the pixmap to one of the device, where the target's edges fall between pixels as well
    const QSizeF exact(pixels.width() / scale.width(), pixels.height() / scale.height());
    const auto corner = isWhole(painter) ? target.topLeft() : sharp(painter, target).topLeft();
    painter.drawPixmap(QRectF(corner, exact), pixmap, QRectF(pixmap.rect()));
    return true;
}

bool drawPictureCropped(QPainter& painter, const QString& name, const QRectF& target) {
    const auto found = picture(name);
    if (!found || target.isEmpty()) {
        return false;
    }
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    const auto drawn = drawPicture(painter, name, {target.topLeft(), found->size});
    painter.restore();
    return drawn;
}

}  // namespace kzq
