#include "ui/scale.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace kzq {

namespace {

constexpr auto leftAlone = "placesItself";

int nearest(double length) {
    return static_cast<int>(std::floor(length + 0.5));
}

/// A page of a scroll area, which moves it.
bool scrolls(const QWidget& widget) {
    const auto* const parent = widget.parentWidget();
    return parent != nullptr && qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) != nullptr;
}

/// Whether another than the program places it.
bool placedByToolkit(const QWidget& widget) {
    const auto* const parent = widget.parentWidget();
    return !widget.isWindow() &&
           (parent == nullptr || (parent->layout() != nullptr && parent->layout()->indexOf(&widget) >= 0) ||
            qobject_cast<const QAbstractScrollArea*>(parent) != nullptr ||
            qobject_cast<const QMenuBar*>(parent) != nullptr || widget.property(leftAlone).toBool());
}

/// Of the widget's top left corner, at 100 %.
QPoint inWindow(const QWidget& widget) {
    QPoint place;
    for (const auto* view = &widget; !view->isWindow() && !scrolls(*view); view = view->parentWidget()) {
        place += placeOf(*view).topLeft();
    }
    return place;
}

/// Letters are up to one pixel wider than the room that a label had for them at 100 %.
int moreForWords(const QWidget& widget, int width) {
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    const bool ends = label == nullptr || label->wordWrap() || !(label->alignment() & Qt::AlignLeft);
    return ends ? 0 : std::clamp(label->sizeHint().width() - width, 0, width / 16);
}

}  // namespace

Scale& Scale::ofProgram() {
    static QPointer<Scale> scale;
    if (scale.isNull()) {
        scale = new Scale(qApp);  // NOLINT(cppcoreguidelines-owning-memory): the application's child
    }
    return *scale;
}

Scale::Scale(QObject* parent) : QObject(parent) {
    parent->installEventFilter(this);
}

void Scale::setSize(double size) {
    if (size == size_) {
        return;
    }
    recordAll();
    size_ = size;
    for (const auto& given : given_.values()) {
        if (given.widget) {
            apply(*given.widget);
        }
    }
    forgetAll();
    scaleToolTips();
    Q_EMIT changed();
}

/// They are windows of the toolkit's.
void Scale::scaleToolTips() const {
    static const auto usual = QToolTip::font();
    auto font = usual;
    if (usual.pixelSize() > 0) {
        font.setPixelSize(onScreen(usual.pixelSize()));
    } else {
        font.setPointSizeF(usual.pointSizeF() * size_);
    }
    QToolTip::setFont(font);
}

/// From here on, what the widgets have is no more what they were given.
void Scale::recordAll() {
    if (!usual()) {
        return;
    }
    for (const auto& window : windows_) {
        if (window) {
            for (auto* const widget : window->findChildren<QWidget*>()) {
                record(*widget);
            }
            record(*window);
        }
    }
}

void Scale::forgetAll() {
    if (usual()) {
        given_.clear();
    }
}

void Scale::take(QWidget& window) {
    std::erase_if(windows_, [](const auto& gone) { return gone.isNull(); });
    windows_.emplace_back(&window);
    if (window.isVisible()) {
        adopt(window);
    }
}

void Scale::leaveAlone(QWidget& widget) {
    widget.setProperty(leftAlone, true);
}

void Scale::setOrigin(const QWidget& window, QPoint origin) {
    if (origins_.value(&window) == origin) {
        return;
    }
    recordAll();
    if (origin.isNull()) {
        origins_.remove(&window);
    } else {
        origins_[&window] = origin;
    }
    for (auto* const child : window.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        apply(*child);
    }
    forgetAll();
}

void Scale::adopt(QWidget& widget) {
    if (usual() || !takes(widget)) {
        return;
    }
    auto all = widget.findChildren<QWidget*>();
    all.prepend(&widget);
    all.removeIf([this](const auto* one) { return find(*one) != nullptr; });
    for (auto* const one : all) {
        record(*one);
    }
    for (auto* const one : all) {
        apply(*one);
    }
}

bool Scale::eventFilter(QObject* watched, QEvent* event) {
    if (!usual() && event->type() == QEvent::Show && watched->isWidgetType()) {
        adopt(static_cast<QWidget&>(*watched));
    }
    return QObject::eventFilter(watched, event);
}

bool Scale::takes(const QWidget& widget) const {
    return std::ranges::any_of(windows_, [&](const auto& window) { return window == widget.window(); });
}

void Scale::record(QWidget& widget) {
    if (!takes(widget) || find(widget) != nullptr) {
        return;
    }
    Given given;
    given.widget = &widget;
    if (!placedByToolkit(widget)) {
        given.place = widget.geometry();
        given.fixed = widget.minimumSize() == widget.maximumSize();
    }
    if (widget.testAttribute(Qt::WA_SetFont)) {
        given.font = widget.font();
    }
    if (widget.layout() != nullptr) {
        given.spacing = widget.layout()->spacing();
    }
    given_.insert(&widget, given);
    connect(&widget, &QObject::destroyed, this, &Scale::forget, Qt::UniqueConnection);
}

void Scale::apply(QWidget& widget) {
    const auto* const found = find(widget);
    if (found == nullptr) {
        return;
    }
    const auto given = *found;  // what follows may lead back here
    if (given.font) {
        widget.setFont(fontOnScreen(*given.font));
    }
    if (given.spacing >= 0) {
        widget.layout()->setSpacing(onScreen(given.spacing));
    }
    if (given.place) {
        applyPlace(widget, given);
    }
}

/// Edges, not lengths, are rounded, and all in the window's coordinates: so neighbours stay neighbours.
void Scale::applyPlace(QWidget& widget, const Given& given) {
    if (widget.isWindow()) {
        if (given.fixed) {
            widget.setFixedSize(onScreen(given.place->width()), onScreen(given.place->height()));
        }
        return;
    }
    if (scrolls(widget)) {
        widget.resize(onScreen(given.place->width()), onScreen(given.place->height()));
        return;
    }
    const auto* const parent = widget.parentWidget();
    const auto outer = inWindow(*parent);
    const auto first = outer + given.place->topLeft();
    const auto last = first + QPoint(given.place->width(), given.place->height());
    const QPoint corner(onScreen(outer.x()), onScreen(outer.y()));
    const auto origin = parent->isWindow() ? origins_.value(parent) : QPoint();
    const QRect real(
        QPoint(onScreen(first.x()), onScreen(first.y())) - corner + origin,
        QSize(onScreen(last.x()) - onScreen(first.x()), onScreen(last.y()) - onScreen(first.y())));
    if (given.fixed) {
        widget.setFixedSize(real.size());
    }
    const int more = size_ == 1 ? 0 : moreForWords(widget, real.width());
    widget.setGeometry(real.adjusted(0, 0, more, 0));
}

Scale::Given* Scale::find(const QWidget& widget) {
    const auto found = given_.find(&widget);
    return found == given_.end() ? nullptr : &*found;
}

void Scale::forget(QObject* widget) {
    given_.remove(widget);
    origins_.remove(widget);
}

void place(QWidget& widget, const QRect& given) {
    auto& scale = Scale::ofProgram();
    if (auto* const known = scale.find(widget); known != nullptr && known->place) {
        known->place = given;
        known->fixed = known->fixed || widget.isWindow();
        scale.apply(widget);
    } else if (widget.isWindow()) {
        widget.setFixedSize(given.size());
    } else {
        widget.setGeometry(given);
    }
}

QRect placeOf(const QWidget& widget) {
    const auto* const known = Scale::ofProgram().find(widget);
    return known != nullptr && known->place ? *known->place : widget.geometry();
}

void dress(QWidget& widget, const QFont& given) {
    auto& scale = Scale::ofProgram();
    if (auto* const known = scale.find(widget); known != nullptr) {
        known->font = given;
        scale.apply(widget);
    } else {
        widget.setFont(given);
    }
}

QFont fontOf(const QWidget& widget) {
    const auto* const known = Scale::ofProgram().find(widget);
    return known != nullptr && known->font ? *known->font : widget.font();
}

double scaleOf(const QWidget& widget) {
    auto& scale = Scale::ofProgram();
    return scale.find(widget) != nullptr ? scale.size() : 1;
}

int onScreen(double length) {
    return nearest(length * Scale::ofProgram().size());
}

QFont fontOnScreen(const QFont& given) {
    auto font = given;
    if (given.pixelSize() > 0) {
        font.setPixelSize(onScreen(given.pixelSize()));
    }
    return font;
}

double advanceOf(const QString& text, const QFont& given) {
    return QFontMetricsF(fontOnScreen(given)).horizontalAdvance(text) / Scale::ofProgram().size();
}

int heightFor(const QWidget& label, int width) {
    const auto scale = scaleOf(label);
    const int narrowest = static_cast<int>(width * scale);  // depending on where its edges fall
    return static_cast<int>(std::ceil(label.heightForWidth(narrowest) / scale));
}

}  // namespace kzq
