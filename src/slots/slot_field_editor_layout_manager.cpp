#include "slots/slot_field_editor_layout_manager.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "ui/palette.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr qreal highlightTop = 2;
constexpr qreal highlightHeight = 12;
constexpr qreal boundless = 1e6;

/// The document's only line; an invalid one before the first layout.
QTextLine lineOf(const QTextDocument& document) {
    const auto block = document.firstBlock();
    return block.isValid() && block.layout()->lineCount() > 0 ? block.layout()->lineAt(0) : QTextLine();
}

bool selectsText(const QColor& colour, const QPalette& palette) {
    return colour == palette.color(QPalette::Active, QPalette::Highlight) ||
           colour == palette.color(QPalette::Inactive, QPalette::Highlight);
}

}  // namespace

SlotFieldEditorLayoutManager::SlotFieldEditorLayoutManager(QTextDocument* document)
    : QAbstractTextDocumentLayout(document) {}

void SlotFieldEditorLayoutManager::fillBackgroundRects(QPainter& painter, const QList<QRectF>& rects,
                                                       int length, const QColor& colour,
                                                       const QPalette& palette) {
    if (rects.isEmpty() || length == 0) {
        return;
    }
    const bool selection = selectsText(colour, palette);
    for (auto rect : rects) {
        if (selection) {
            const auto top = onScreen(highlightTop);
            rect = QRectF(rect.x(), top, rect.width(), onScreen(highlightTop + highlightHeight) - top);
        }
        painter.fillRect(rect, selection ? KZQTextHighlight() : colour);
    }
}

void SlotFieldEditorLayoutManager::draw(QPainter* painter, const PaintContext& context) {
    const auto line = lineOf(*document());
    if (!line.isValid()) {
        return;
    }
    for (const auto& selection : context.selections) {
        const auto from = line.cursorToX(selection.cursor.selectionStart());
        const auto to = line.cursorToX(selection.cursor.selectionEnd());
        const QRectF behind(std::min(from, to), line.y(), std::abs(to - from), line.height());
        fillBackgroundRects(*painter, {behind},
                            selection.cursor.selectionEnd() - selection.cursor.selectionStart(),
                            selection.format.background().color(), context.palette);
    }
    painter->setPen(context.palette.color(QPalette::Text));
    document()->firstBlock().layout()->draw(painter, QPointF());
}

int SlotFieldEditorLayoutManager::hitTest(const QPointF& point, Qt::HitTestAccuracy /*accuracy*/) const {
    const auto line = lineOf(*document());
    return line.isValid() ? line.xToCursor(point.x()) : 0;
}

QSizeF SlotFieldEditorLayoutManager::documentSize() const {
    return {std::ceil(width_) + 1,
            static_cast<qreal>(onScreen(lineHeight))};  // room for the caret at the end
}

QRectF SlotFieldEditorLayoutManager::frameBoundingRect(QTextFrame* /*frame*/) const {
    return {QPointF(), documentSize()};
}

QRectF SlotFieldEditorLayoutManager::blockBoundingRect(const QTextBlock& block) const {
    return block == document()->firstBlock() ? QRectF(QPointF(), documentSize()) : QRectF();
}

void SlotFieldEditorLayoutManager::documentChanged(int /*from*/, int /*removed*/, int /*added*/) {
    auto* const layout = document()->firstBlock().layout();
    auto option = document()->defaultTextOption();
    option.setWrapMode(QTextOption::NoWrap);
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);  // the line has no right end to align with
    layout->setTextOption(option);
    layout->beginLayout();
    auto line = layout->createLine();
    if (line.isValid()) {
        line.setLineWidth(boundless);  // also measures the line
        line.setPosition(QPointF(0, onScreen(baseline) - line.ascent()));
    }
    layout->endLayout();
    width_ = line.isValid() ? line.naturalTextWidth() : 0;
    Q_EMIT documentSizeChanged(documentSize());
    Q_EMIT update();
}

}  // namespace kzq
