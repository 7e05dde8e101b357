#include "app/menu_control.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "app/app_environment.h"
#include "app/main_window.h"
#include "app/panels.h"
#include "app/teller.h"
#include "device/kzq7306.h"
#include "ui/times.h"
#include "words/words.h"

namespace kzq {

namespace {

/// Moves the highlight from the hovered item to the next one; without a hovered item, to `whenNone`. It never
/// wraps.
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

/// What "up to date" rests on.
Told toldFirmwareList(const FirmwareUpdates& updates) {
    const auto news = updates.news();
    const auto read = news.read ? timeOfDay(*news.read).toStdString() : std::string();
    return toldFirmwareList(read, news.newest, news.trouble);
}

}  // namespace

MenuView* MenuControl::view() const {
    return panels_.menu ? panels_.menu->view() : nullptr;
}

bool MenuControl::isOpen() const {
    return view() != nullptr && !view()->isHidden();
}

bool MenuControl::contains(QPoint point) const {
    return panels_.menu && panels_.menu->hitTest(point);
}

void MenuControl::open() const {
    if (view() == nullptr) {
        return;
    }
    for (auto* const item : panels_.menu->items()) {
        item->setHovered(false);
    }
    view()->show();
    view()->raise();
    panels_.menu->setFirmwareTitle(panels_.menu->modifiers());
    view()->setFocus();
    window_.menuButton()->hide();  // last, so that the focus does not move elsewhere
}

void MenuControl::close() const {
    if (view() == nullptr) {
        return;
    }
    const bool hadFocus = view()->hasFocus();
    view()->hide();
    window_.menuButton()->show();
    if (hadFocus) {
        window_.menuButton()->setFocus();
    }
}

void MenuControl::up() const {
    if (panels_.menu) {
        const auto items = panels_.menu->items();
        moveHighlight(items.rbegin(), items.rend(), panels_.menu->website());
    }
}

void MenuControl::down() const {
    if (panels_.menu) {
        const auto items = panels_.menu->items();
        moveHighlight(items.begin(), items.end(), panels_.menu->about());
    }
}

void MenuControl::go() const {
    if (!panels_.menu) {
        return;
    }
    constexpr std::array actions{&MenuControl::openAbout, &MenuControl::checkForSoftwareUpdates,
                                 &MenuControl::openFirmwareUpdater, &MenuControl::goToWebsite};
    const auto items = panels_.menu->items();
    const auto* const hovered =
        std::ranges::find_if(items, [](const MenuItem* item) { return item->hovered(); });
    if (hovered != items.end()) {
        (this->*actions.at(static_cast<std::size_t>(hovered - items.begin())))();
    }
}

void MenuControl::openMainWindow() const {
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.show();
    window_.raise();
    window_.activateWindow();
}

void MenuControl::openAbout() const {
    close();
    if (!panels_.about) {
        openMainWindow();  // otherwise done when the panel closes
        return;
    }
    if (!panels_.about->isVisible()) {
        panels_.about->centre();
    }
    panels_.about->showWindow();
}

void MenuControl::checkForSoftwareUpdates() const {
    if (panels_.softwareUpdate) {
        panels_.softwareUpdate->checkForUpdates();
    }
}

void MenuControl::openFirmwareUpdater() const {
    if (!panels_.firmwareUpdater) {
        return;
    }
    const auto looper = environment_.link();
    if (!looper || looper->disconnected()) {
        environment_.dialogs.run(alertWithHeadline(words("Your 7306 device is not connected"),
                                                   words("Please connect your device and try again.")));
    } else if (panels_.firmwareUpdater->update()) {
        panels_.firmwareUpdater->showWindow();
    } else {
        teller_.tell(toldFirmwareList(*panels_.firmwareUpdater->updates()), "firmware list");
        environment_.dialogs.run(alertWithHeadline(
            words("You're up to date!"),
            words("Version %1 is the newest 7306 firmware available.", looper->version().value_or(""))));
    }
}

void MenuControl::goToWebsite() const {
    environment_.dialogs.openAddress(environment_.product.website);
}

}  // namespace kzq
