#include <QWindow>
#include <algorithm>
#include <array>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "ui/panels/about.h"
#include "ui/panels/menu.h"
#include "ui/picture_button.h"
#include "updates/windows/software_update.h"

namespace kzq {

namespace {

/// Moves the highlight from the hovered item to the next one in `items`; without a hovered item, to the last
/// one that `wrapTo` names. It never wraps.
template <class Items>
void moveHighlight(Items first, Items last, MenuItem& whenNone) {
    const auto hovered = std::find_if(first, last, [](const MenuItem* item) { return item->hovered(); });
    if (hovered == last) {
        whenNone.setHovered(true);
    } else if (const auto next = std::next(hovered); next != last) {
        (*hovered)->setHovered(false);
        (*next)->setHovered(true);
    }
}

}  // namespace

bool AppDelegate::menuOpen() const {
    return menu_ && menu_->view() != nullptr && !menu_->view()->isHidden();
}

bool AppDelegate::pointInMenuBounds(QPoint point) const {
    return menu_ && menu_->hitTest(point);
}

bool AppDelegate::isMainWindow(const QWindow& window) const {
    return window_.windowHandle() == &window;
}

void AppDelegate::openMenu() {
    if (!menu_ || menu_->view() == nullptr) {
        return;
    }
    for (auto* const item : menu_->items()) {
        item->setHovered(false);
    }
    auto& view = *menu_->view();
    view.show();
    view.raise();
    menu_->setFirmwareTitle(menu_->modifiers());
    view.setFocus();
    window_.menuButton()->hide();  // last, so that the focus does not move elsewhere
}

void AppDelegate::closeMenu() {
    if (!menu_ || menu_->view() == nullptr) {
        return;
    }
    const bool hadFocus = menu_->view()->hasFocus();
    menu_->view()->hide();
    window_.menuButton()->show();
    if (hadFocus) {
        window_.menuButton()->setFocus();
    }
}

void AppDelegate::menuUp() {
    if (menu_) {
        const auto items = menu_->items();
        moveHighlight(items.rbegin(), items.rend(), menu_->website());
    }
}

void AppDelegate::menuDown() {
    if (menu_) {
        const auto items = menu_->items();
        moveHighlight(items.begin(), items.end(), menu_->about());
    }
}

void AppDelegate::menuGo() {
    if (!menu_) {
        return;
    }
    constexpr std::array actions{&AppDelegate::openAbout, &AppDelegate::checkForSoftwareUpdates,
                                 &AppDelegate::openFirmwareUpdater, &AppDelegate::goToWebsite};
    const auto items = menu_->items();
    const auto* const hovered =
        std::ranges::find_if(items, [](const MenuItem* item) { return item->hovered(); });
    if (hovered != items.end()) {
        (this->*actions.at(static_cast<std::size_t>(hovered - items.begin())))();
    }
}

void AppDelegate::openMainWindow() {
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.show();
    window_.raise();
    window_.activateWindow();
}

void AppDelegate::openAbout() {
    closeMenu();
    if (!about_) {
        openMainWindow();  // otherwise done when the panel closes
        return;
    }
    if (!about_->isVisible()) {
        about_->centre();
    }
    about_->showWindow();
}

void AppDelegate::checkForSoftwareUpdates() {
    if (softwareUpdate_) {
        softwareUpdate_->checkForUpdates();
    }
}

void AppDelegate::goToWebsite() {
    environment_.dialogs.openAddress(environment_.product.website);
}

}  // namespace kzq
