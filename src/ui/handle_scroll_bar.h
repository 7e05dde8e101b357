#pragma once

#include <QScrollBar>

class QScrollArea;

namespace kzq {

/// A 6 px handle, present only if there is something to scroll. It can be dragged; a click beside it scrolls
/// by a page.
class HandleScrollBar : public QScrollBar {
  public:
    static constexpr int barWidth = 14;  ///< including the space around the handle

    explicit HandleScrollBar(QWidget* parent);

    QSize sizeHint() const override;
    /// Empty while there is nothing to scroll.
    QRect handle() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    QRect track() const;

    int grabbedAt_ = -1;  ///< from the handle's top; -1 if not dragged
};

/// Without a frame or a ground of its own, never scrolled sideways, and with such a handle.
void dressScrollArea(QScrollArea& area);

}  // namespace kzq
