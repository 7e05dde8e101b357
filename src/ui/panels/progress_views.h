#pragma once

#include <QWidget>

namespace kzq {

/// The ground of the progress panel: the plate, the tape between the reels, the rim of the track.
class ProgressGround : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The empty track; its width is 100 %. Assistive technology reads the progress from it.
class ProgressTrack : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// In whole percent, 0 to 100.
    int value() const { return value_; }
    void setValue(int percent);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int value_ = 0;
};

/// The filled part.
class ProgressFill : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kzq
