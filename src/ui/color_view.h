#pragma once

#include <QColor>
#include <QWidget>
#include <optional>

namespace kzq {

/// Fills its bounds with a colour.
class ColorView : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    const std::optional<QColor>& color() const { return color_; }
    /// None means clear.
    void setColor(std::optional<QColor> color);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::optional<QColor> color_;
};

}  // namespace kzq
