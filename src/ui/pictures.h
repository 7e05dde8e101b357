#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <cstdint>
#include <optional>

namespace kzq {

/// A picture of the program by its name; a plain value, cheap to copy.
struct Picture {
    QString name;
    QSizeF size;  ///< in logical pixels, as it was drawn

    bool operator==(const Picture& other) const { return name == other.name; }
};

/// The picture called `name`, such as "Export_X"; nothing if there is none. Main thread.
std::optional<Picture> picture(const QString& name);

/// All of a picture; what is under its words and the mark before them; or only that mark.
enum class PicturePart : std::uint8_t { whole, ground, mark };

/// Draws the picture scaled into `target`, sharp at the painter's device ratio. Returns false, and draws
/// nothing, if there is no such picture or `target` is empty. `tint` is laid over what is not clear in it.
bool drawPicture(QPainter& painter, const QString& name, const QRectF& target, const QColor& tint = {},
                 PicturePart part = PicturePart::whole);
/// Draws the picture at its own size from the left end of `target`, cropped by it.
bool drawPictureCropped(QPainter& painter, const QString& name, const QRectF& target);

}  // namespace kzq
