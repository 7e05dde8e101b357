#pragma once

#include <QScrollBar>

namespace kzq {

/// A handle of 6 px that is only there while there is something to scroll. It is dragged; a click beside it
/// turns the page.
class NotesScrollBar : public QScrollBar {
  public:
    static constexpr int barWidth = 14;  ///< with the room round the handle

    explicit NotesScrollBar(QWidget* parent);

    QSize sizeHint() const override { return {barWidth, barWidth}; }
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

    int grabbedAt_ = -1;  ///< from the handle's top; -1 for not dragged
};

}  // namespace kzq
