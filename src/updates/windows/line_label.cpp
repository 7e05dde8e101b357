#include "updates/windows/line_label.h"

#include <QPainter>
#include <QTextLayout>
#include <cmath>

#include "ui/fonts.h"
#include "ui/scale.h"

namespace kzq {

LineLabel::LineLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void LineLabel::setType(int pixels, int lineHeight, const QColor& color) {
    dress(*this, textFont(pixels));
    lineHeight_ = lineHeight;
    color_ = color;
    updateGeometry();
    update();
}

/// Returns the height.
double LineLabel::layOut(QTextLayout& layout, int width) const {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setAlignment(alignment() & Qt::AlignHorizontal_Mask);
    layout.setTextOption(option);
    layout.beginLayout();
    const auto pitch = lineHeight_ * scaleOf(*this);
    double height = 0;
    for (auto line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height + (pitch - line.height()) / 2));
        height += pitch;
    }
    layout.endLayout();
    return height;
}

int LineLabel::heightForWidth(int width) const {
    QTextLayout layout(text(), font());
    return text().isEmpty() ? 0 : static_cast<int>(std::ceil(layOut(layout, width)));
}

int LineLabel::heightOfLines(int width) const {
    QTextLayout layout(text(), font());
    const auto scale = scaleOf(*this);
    const int narrowest = static_cast<int>(width * scale);  // depending on where its edges fall
    return text().isEmpty() ? 0 : static_cast<int>(std::lround(layOut(layout, narrowest) / scale));
}

void LineLabel::paintEvent(QPaintEvent* /*event*/) {
    QTextLayout layout(text(), font());
    layOut(layout, width());
    QPainter painter(this);
    painter.setPen(color_);
    layout.draw(&painter, QPointF(0, 0));
}

}  // namespace kzq
