#pragma once

#include <QAbstractTextDocumentLayout>
#include <QColor>
#include <QPalette>
#include <QRectF>

namespace kzq {

/// Lays the field editor's text out as one line without margins and draws it: baseline 12, and under selected
/// text a highlight from y 2 to 14 instead of the whole line's height.
class SlotFieldEditorLayoutManager : public QAbstractTextDocumentLayout {
    Q_OBJECT

  public:
    static constexpr qreal lineHeight = 16;
    static constexpr qreal baseline = 12;

    explicit SlotFieldEditorLayoutManager(QTextDocument* document);

    /// Fills the background of `length` characters: with the palette's highlight at its height if `colour` is
    /// the toolkit's own for selected text, else as given. Nothing for an empty range.
    static void fillBackgroundRects(QPainter& painter, const QList<QRectF>& rects, int length,
                                    const QColor& colour, const QPalette& palette);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;
    QRectF blockBoundingRect(const QTextBlock& block) const override;

  protected:
    void documentChanged(int from, int removed, int added) override;

  private:
    qreal width_ = 0;
};

}  // namespace kzq
