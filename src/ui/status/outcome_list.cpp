#include "ui/status/outcome_list.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainterPath>
#include <QScrollArea>
#include <algorithm>

#include "ui/focus_ring.h"
#include "ui/fonts.h"
#include "ui/handle_scroll_bar.h"
#include "ui/palette.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/status/accessible_status.h"
#include "ui/status/chevron.h"
#include "ui/status/outcome_row.h"

namespace kzq {
namespace {

constexpr int listWidth = 428;
constexpr int tabWidth = 32;
constexpr int tabHeight = 28;
constexpr int tabY = 4;  // below the bar's top
constexpr int fromRight = 20;
constexpr int margin = 12;  // above the first row and below the last
constexpr int sideMargin = 8;
constexpr int rowsShown = 6;
constexpr int emptyHeight = 48;
constexpr int frameLine = 2;

/// The panel with its tab, `inset` inside the widget.
QPainterPath shape(const QRectF& bounds, double inset) {
    const double radius = 8 - inset;
    QPainterPath body;
    body.addRoundedRect(bounds.adjusted(inset, tabHeight + inset, -inset, -inset), radius, radius);
    QPainterPath tab;
    tab.addRoundedRect(QRectF(bounds.right() - tabWidth + inset, inset, tabWidth - 2 * inset, tabHeight + 24),
                       radius, radius);
    return body.united(tab);
}

}  // namespace

OutcomeList::OutcomeList(QWidget* window) : QWidget(window), area_(new QScrollArea(this)) {
    installAccessibleStatus();  // before anything is said about it
    setFocusPolicy(Qt::ClickFocus);
    setAccessibleName(toQt(words("Recent results")));
    dressScrollArea(*area_);
    new FocusRing(this);
    hide();
}

void OutcomeList::placeUnder(const QMenuBar& bar) {
    const auto above = placeOf(bar);
    const QPoint corner(above.right() + 1 - fromRight - listWidth, above.y() + tabY);
    place(*this, {corner, placeOf(*this).size()});
}

void OutcomeList::show(const std::deque<Announcement>& outcomes, Qt::FocusReason reason) {
    reason_ = reason;
    before_ = window()->focusWidget();
    fill(outcomes);
    QWidget::show();
    raise();
    qApp->installEventFilter(this);
    if (reason == Qt::MouseFocusReason || rows_.empty()) {
        setFocus(Qt::MouseFocusReason);
    } else {
        rows_.front()->setFocus(reason);
    }
}

void OutcomeList::refresh(const std::deque<Announcement>& outcomes) {
    std::uint64_t focused = 0;
    for (const auto* const row : rows_) {
        if (row->hasFocus() || row->isAncestorOf(QApplication::focusWidget())) {
            focused = row->number();
        }
    }
    if (hasFocus() || isAncestorOf(QApplication::focusWidget())) {
        setFocus(Qt::OtherFocusReason);
    }
    fill(outcomes);
    for (auto* const row : rows_) {
        if (row->number() == focused) {
            row->setFocus(reason_);
        }
    }
}

void OutcomeList::close() {
    if (!isVisible()) {
        return;
    }
    qApp->removeEventFilter(this);
    const auto hadFocus = hasFocus() || isAncestorOf(QApplication::focusWidget());
    if (hadFocus && before_) {
        before_->setFocus(reason_);
    } else if (hadFocus) {
        clearFocus();
    }
    hide();
    Q_EMIT closed();
}

bool OutcomeList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType()) {
        auto* const pressed = static_cast<QWidget*>(watched);
        const bool inside = pressed == this || isAncestorOf(pressed);
        if (!inside && pressed != opener_) {  // the opener closes it with its click
            close();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void OutcomeList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            close();
            break;
        case Qt::Key_Up:
            walk(-1);
            break;
        case Qt::Key_Down:
            walk(1);
            break;
        default:
            break;  // nothing behind the list gets a key while it is open
    }
}

/// Round and round in the list.
bool OutcomeList::focusNextPrevChild(bool next) {
    std::vector<QWidget*> stops;
    for (auto* const row : rows_) {
        stops.push_back(row);
        if (row->remedy() != nullptr) {
            stops.push_back(row->remedy());
        }
        stops.push_back(&row->copy());
    }
    if (stops.empty()) {
        return true;
    }
    const auto size = static_cast<std::ptrdiff_t>(stops.size());
    const auto now = std::ranges::find(stops, QApplication::focusWidget());
    const auto at = now == stops.end() ? (next ? -1 : size) : now - stops.begin();
    auto* const stop = stops[static_cast<std::size_t>((at + (next ? 1 : size - 1)) % size)];
    stop->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    area_->ensureWidgetVisible(stop, 0, margin);
    return true;
}

void OutcomeList::walk(int step) {
    if (rows_.empty()) {
        return;
    }
    const auto now = std::ranges::find_if(rows_, [](const OutcomeRow* row) {
        return row->hasFocus() || row->isAncestorOf(QApplication::focusWidget());
    });
    const auto last = static_cast<std::ptrdiff_t>(rows_.size()) - 1;
    const auto at = now == rows_.end() ? (step > 0 ? 0 : last)
                                       : std::clamp<std::ptrdiff_t>(now - rows_.begin() + step, 0, last);
    auto* const row = rows_[static_cast<std::size_t>(at)];
    row->setFocus(Qt::TabFocusReason);
    area_->ensureWidgetVisible(row, 0, 0);
}

/// Whether they need the handle beside them shows once they are laid out without it.
void OutcomeList::fill(const std::deque<Announcement>& outcomes) {
    const int room = roomForRows();
    int height = fillPage(outcomes, listWidth - 2 * sideMargin);
    if (outcomes.size() > rowsShown || height > room) {
        height = fillPage(outcomes, listWidth - sideMargin - HandleScrollBar::barWidth - frameLine);
    }
    layOut(std::min(height, room));
}

int OutcomeList::fillPage(const std::deque<Announcement>& outcomes, int width) {
    rows_.clear();
    auto* const page = new QWidget;
    int y = 0;
    int visibleHeight = 0;
    for (const auto& outcome : outcomes) {
        auto* const row = new OutcomeRow(outcome, &outcome == &outcomes.back(), width, page);
        const auto size = placeOf(*row).size();
        place(*row, {QPoint(0, y), size});
        y += size.height();
        rows_.push_back(row);
        if (rows_.size() <= rowsShown) {
            visibleHeight = y;
        }
        if (row->remedy() != nullptr) {
            connect(
                row->remedy(), &StatusLink::clicked, this,
                [this, number = row->number()] { Q_EMIT used(number); }, Qt::QueuedConnection);
        }
    }
    page->resize(width, y);
    area_->setWidget(page);  // which deletes the one before
    return visibleHeight;
}

int OutcomeList::roomForRows() const {
    const auto whole = static_cast<int>(window()->height() / scaleOf(*window()));
    return whole - placeOf(*this).y() - tabHeight - 2 * margin - sideMargin;
}

void OutcomeList::layOut(int shown) {
    const auto corner = placeOf(*this).topLeft();
    place(*area_, {sideMargin, tabHeight + margin, listWidth - sideMargin - frameLine, shown});
    const int height = tabHeight + (rows_.empty() ? emptyHeight : shown + 2 * margin);
    place(*this, {corner, QSize(listWidth, height)});
}

void OutcomeList::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape(painter.bounds(), 0), outlineColor());
    painter.fillPath(shape(painter.bounds(), frameLine), panelColor());
    drawChevron(painter, QPointF(listWidth - tabWidth / 2.0, 12), Chevron::up, KZQYellow());
    if (rows_.empty()) {
        painter.setType(textFont());
        painter.setPen(KZQGray());
        painter.writeWithin(QPointF(16, tabHeight + 29), toQt(words("Nothing has happened yet.")),
                            listWidth - 32);
    }
}

}  // namespace kzq
