#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <vector>

#include "ui/scaled_painter.h"

namespace kzq {

/// A loop as it hangs under the pointer while it is carried out of the window.
struct CarriedLoop {
    QString name;
    QString length;  ///< "2:31"
};

/// Strips of tape under the pointer, at most three, and their number if there are several. Main thread.
class Strip : public QWidget {
  public:
    /// `loops` has at least one. Belongs to `window`, and is a window of its own that takes no input.
    Strip(std::vector<CarriedLoop> loops, QWidget* window);

    /// In screen coordinates. Shows it.
    void follow(QPoint pointer);
    /// Their files are being made: `share` of them, 0 to 1, is there. Then the length's place has it.
    void setArrived(double share);
    /// As it looks with whole files, for the toolkit's drag, at this window's device ratio.
    QPixmap picture() const;
    /// Of the pointer, in the picture.
    QPoint hotSpot() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void paint(ScaledPainter& painter, bool whole) const;
    static void paintStrip(ScaledPainter& painter, QPointF at, const CarriedLoop& loop,
                           const QString& figures);
    void paintCount(ScaledPainter& painter, QPointF at) const;

    std::vector<CarriedLoop> loops_;
    const double size_;  ///< the program's, when it was picked up
    int percent_ = 0;
};

}  // namespace kzq
