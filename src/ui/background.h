#pragma once

#include <QString>
#include <QWidget>

namespace kzq {

/// The background of a window: takes the focus on a click, and swallows keys that no control handled. Draws
/// the picture given, or the plain plate.
class Background : public QWidget {
    Q_OBJECT

  public:
    explicit Background(QWidget* parent = nullptr);

    void setPicture(const QString& name);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QString picture_;
};

/// Paints the brown plate of windows that have no picture of their own.
void drawPlate(QPainter& painter, const QRect& bounds);

}  // namespace kzq
