#pragma once

#include <QPainter>
#include <functional>

namespace kzq {

/// Paints on a widget in pixels of 100 %, at whatever size the widget is shown. Text is set in real fonts of
/// that size, by `write` instead of drawText; `fill` and `sharp` bring edges to whole pixels of the device.
class ScaledPainter : public QPainter {
  public:
    explicit ScaledPainter(QWidget* widget);
    /// On what is `size` times as large as at 100 %.
    ScaledPainter(QPaintDevice* device, double size);

    /// All of the widget, at 100 %.
    QRectF bounds() const { return bounds_; }
    /// Pixels of the device to one of 100 %.
    double deviceScale() const;

    /// The font of 100 % in which `write` writes.
    void setType(const QFont& given);
    /// Makes it smaller until `text` takes no more than `room`, but not so small that it cannot be read.
    void fitType(const QString& text, double room);
    void fitType(const QSizeF& room, int flags, const QString& text);
    void write(const QPointF& baseline, const QString& text);
    void write(const QRectF& box, int flags, const QString& text);
    /// In smaller type if it takes more than `room`.
    void writeWithin(const QPointF& baseline, const QString& text, double room);
    /// From the left on, in the direction in which the name is read, and cut at its end after `room` pixels.
    void writeName(const QPointF& baseline, const QString& name, double room);
    /// In the font of `write`, in pixels of 100 %.
    double advance(const QString& text) const;

    /// `rect` with its edges on whole pixels of the device, in pixels of 100 %; a side of at most 2 is
    /// rounded down, to 1 at least.
    QRectF sharp(const QRectF& rect) const;
    void fill(const QRectF& rect, const QColor& color) { fillRect(sharp(rect), color); }

    /// Sees each text that is written from now on, and whether it has the room for it; empty: nobody does.
    using Watcher = std::function<void(const QString& text, bool fits)>;
    static void setWatcher(Watcher watcher);

  private:
    QFont realType() const;
    QSizeF sizeOf(const QSizeF& box, int flags, const QString& text) const;

    double size_;
    QRectF bounds_;
    QFont given_;
};

/// The same for any painter that is scaled and moved.
QRectF sharp(const QPainter& painter, const QRectF& rect);
/// Pixels of the device to one of the painter's.
double deviceScaleOf(const QPainter& painter);
/// Whether pictures drawn on even edges with lines of 2 fall on whole pixels: then nothing is rounded.
bool isWhole(double deviceScale);
/// The same for where `painter` draws: a desktop's scale may put a widget into the middle of a pixel.
bool isWhole(const QPainter& painter);
/// A coordinate of 100 % moved to the nearest pixel of the device, half upward.
double toPixel(double coordinate, double deviceScale);
/// The thickness of a line: up to 2 it is rounded down to whole pixels, to 1 at least.
double toPixels(double thickness, double deviceScale);

}  // namespace kzq
