#pragma once

#include <QColor>
#include <QLabel>

class QTextLayout;

namespace kzq {

/// Plain text, wrapped, on lines of a given height, left or right; from the top, white by default. What does
/// not fit into the label is not drawn.
class LineLabel : public QLabel {
  public:
    explicit LineLabel(QWidget* parent = nullptr);

    void setType(int pixels, int lineHeight, const QColor& color);
    int heightForWidth(int width) const override;
    /// The height of its lines at a width, both in pixels of 100 %: the same at all sizes of the program
    /// unless words wrap otherwise.
    int heightOfLines(int width) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double layOut(QTextLayout& layout, int width) const;

    int lineHeight_ = 16;
    QColor color_ = Qt::white;
};

}  // namespace kzq
