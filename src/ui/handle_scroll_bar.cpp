#include "ui/handle_scroll_bar.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <algorithm>

#include "ui/palette.h"
#include "ui/scale.h"

namespace kzq {
namespace {

constexpr QMargins room(4, 8, 4, 8);
constexpr int shortestHandle = 24;

}  // namespace

HandleScrollBar::HandleScrollBar(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_OpaquePaintEvent, false);  // which not every style takes back
}

QSize HandleScrollBar::sizeHint() const {
    return QSize(barWidth, barWidth) * Scale::ofProgram().size();
}

QRect HandleScrollBar::track() const {
    return rect().marginsRemoved(room * Scale::ofProgram().size());
}

QRect HandleScrollBar::handle() const {
    const int range = maximum() - minimum();
    if (range <= 0) {
        return {};
    }
    auto handle = track();
    const int whole = handle.height();
    const int length = std::clamp(whole * pageStep() / (range + pageStep()),
                                  std::min(onScreen(shortestHandle), whole), whole);
    handle.setHeight(length);
    handle.translate(0, (whole - length) * (value() - minimum()) / range);
    return handle;
}

void HandleScrollBar::paintEvent(QPaintEvent* /*event*/) {
    const auto bounds = handle();
    if (bounds.isEmpty()) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(grabbedAt_ < 0 ? outlineColor() : KZQGray());
    painter.drawRoundedRect(bounds, bounds.width() / 2.0, bounds.width() / 2.0);
}

void HandleScrollBar::mousePressEvent(QMouseEvent* event) {
    const auto bounds = handle();
    const int y = event->position().toPoint().y();
    if (event->button() != Qt::LeftButton || bounds.isEmpty()) {
        return;
    }
    if (y < bounds.top()) {
        triggerAction(SliderPageStepSub);
    } else if (y > bounds.bottom()) {
        triggerAction(SliderPageStepAdd);
    } else {
        grabbedAt_ = y - bounds.top();
    }
    update();
}

void HandleScrollBar::mouseMoveEvent(QMouseEvent* event) {
    const int way = track().height() - handle().height();
    if (grabbedAt_ >= 0 && way > 0) {
        const int top = std::clamp(event->position().toPoint().y() - grabbedAt_ - track().top(), 0, way);
        setValue(minimum() + top * (maximum() - minimum()) / way);
    }
}

void HandleScrollBar::mouseReleaseEvent(QMouseEvent* /*event*/) {
    grabbedAt_ = -1;
    update();
}

void HandleScrollBar::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();  // the desktop's menu would look out of place here
}

void dressScrollArea(QScrollArea& area) {
    area.setFrameShape(QFrame::NoFrame);
    area.setFocusPolicy(Qt::NoFocus);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.setVerticalScrollBar(new HandleScrollBar(&area));
    auto clear = area.palette();
    clear.setColor(QPalette::Window, Qt::transparent);
    area.setPalette(clear);
    area.viewport()->setAutoFillBackground(false);
}

}  // namespace kzq
