#include "ui/panels/menu_item.h"

#include <QAccessible>
#include <QLabel>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/panels/label_style.h"
#include "ui/panels/menu_item_view.h"
#include "ui/scale.h"
#include "ui_MenuItem.h"

namespace kzq {

std::unique_ptr<MenuItem> MenuItem::item() {
    return std::unique_ptr<MenuItem>(new MenuItem);
}

MenuItem::MenuItem() : view_(new MenuItemView) {
    Ui::MenuItem ui;
    ui.setupUi(view_);
    label_ = ui.label;
    styleLabel(*label_, KZQWhite(), textFont());
    view_->setController(this);
}

MenuItem::~MenuItem() {
    if (view_ && view_->parent() == nullptr) {
        delete view_.data();
    } else if (view_) {
        view_->setController(nullptr);
    }
}

MenuItemView* MenuItem::view() const {
    return view_;
}

void MenuItem::setTitle(const QString& title) {
    if (!label_ || label_->text() == title) {
        return;
    }
    label_->setText(title);
    const auto hint = QSizeF(label_->sizeHint()) / scaleOf(*label_);
    place(*label_, {placeOf(*label_).topLeft(), QSize(qCeil(hint.width()), qCeil(hint.height()))});
    view_->setAccessibleName(title);
}

QString MenuItem::title() const {
    return label_ ? label_->text() : QString();
}

void MenuItem::setHovered(bool hovered) {
    const bool changed = hovered != hovered_;
    hovered_ = hovered;
    if (!changed || !view_) {
        return;
    }
    view_->update();
    Q_EMIT hoveredChanged();
    if (hovered) {
        QAccessibleEvent focus(view_, QAccessible::Focus);
        QAccessible::updateAccessibility(&focus);
    }
}

}  // namespace kzq
