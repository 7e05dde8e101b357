#pragma once

#include <QProgressBar>

namespace kzq {

/// A bar of 43 lamps in a track, 352 x 24, lit from the left; the picture of the lit ones is cropped, never
/// stretched. Assistive technology sees a progress bar.
class LampBar : public QProgressBar {
  public:
    explicit LampBar(QWidget* parent = nullptr);

    /// 0 to 1; not a number counts as 0.
    void setDoubleValue(double value);
    double doubleValue() const { return value_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double value_ = 0;
};

}  // namespace kzq
