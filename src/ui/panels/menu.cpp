#include "ui/panels/menu.h"

#include <QGuiApplication>
#include <QUrl>
#include <algorithm>

#include "ui/application_controller.h"
#include "ui/dialogs.h"
#include "ui/panels/accessible_panels.h"
#include "ui/panels/menu_item_view.h"
#include "ui/qt_words.h"
#include "ui_Menu.h"

namespace kzq {

std::unique_ptr<Menu> Menu::menu(ApplicationController& controller, Dialogs& dialogs, QWidget* parent,
                                 const Product& product) {
    installAccessiblePanels();
    std::unique_ptr<Menu> menu(new Menu(controller, dialogs, product));
    return menu->loadView(parent) ? std::move(menu) : nullptr;
}

Menu::Menu(ApplicationController& controller, Dialogs& dialogs, Product product)
    : controller_(controller),
      dialogs_(dialogs),
      product_(std::move(product)),
      modifierProbe_(&QGuiApplication::queryKeyboardModifiers) {}

Menu::~Menu() {
    for (const auto& item : items_) {
        if (item) {
            item->setDelegate(nullptr);
        }
    }
    delete view_.data();
}

bool Menu::loadView(QWidget* parent) {
    view_ = new MenuView(parent);
    Ui::Menu ui;
    ui.setupUi(view_);
    view_->setFixedSize(view_->size());
    view_->setAccessibleName(toQt(words("Menu")));
    ui.hamburger->setAccessibleName(toQt(words("Close menu")));
    body_ = ui.body;
    ui.hamburger->setFocusPolicy(Qt::NoFocus);
    connect(ui.hamburger, &PictureButton::clicked, this, [this] { controller_.closeMenu(); });
    if (!populateSlots({ui.slotForAbout, ui.slotForSoftware, ui.slotForFirmware, ui.slotForWebsite})) {
        return false;
    }
    view_->setController(this);
    view_->hide();
    return true;
}

bool Menu::populateSlots(const std::array<QWidget*, 4>& slotViews) {
    const std::array titles{words("About..."), words("Software Update..."), words("Firmware Update..."),
                            websiteLabel(product_)};
    for (std::size_t i = 0; i < items_.size(); ++i) {
        auto item = MenuItem::item();
        if (!item) {
            return false;
        }
        item->setTitle(toQt(titles.at(i)));
        item->setDelegate(this);
        item->view()->setParent(slotViews.at(i));
        connect(item.get(), &MenuItem::hoveredChanged, view_, qOverload<>(&QWidget::update));
        items_.at(i) = std::move(item);
    }
    return true;
}

std::array<MenuItem*, 4> Menu::items() {
    return {items_[0].get(), items_[1].get(), items_[2].get(), items_[3].get()};
}

bool Menu::hitTest(QPoint point) const {
    return view_ && body_ && body_->geometry().contains(view_->mapFrom(view_->window(), point));
}

bool Menu::selectsFirmware(Qt::KeyboardModifiers modifiers) {
    return modifiers.testFlags(Qt::ControlModifier | Qt::ShiftModifier);
}

void Menu::setFirmwareTitle(Qt::KeyboardModifiers modifiers) {
    firmware().setTitle(
        toQt(selectsFirmware(modifiers) ? words("Select Firmware...") : words("Firmware Update...")));
}

void Menu::hoverOnly(const MenuItem* item) {
    for (const auto& each : items_) {
        each->setHovered(each.get() == item);
    }
}

void Menu::itemEntered(MenuItem& item) {
    hoverOnly(&item);
}

void Menu::itemExited(MenuItem& /*item*/) {
    hoverOnly(nullptr);
}

void Menu::itemClicked(MenuItem& item) {
    if (&item == &about()) {
        controller_.openAbout();
    } else if (&item == &software()) {
        controller_.checkForSoftwareUpdates();
    } else if (&item == &firmware() && selectsFirmware(modifiers())) {
        selectFirmware();
    } else if (&item == &firmware()) {
        controller_.openFirmwareUpdater();
    } else if (&item == &website()) {
        controller_.goToWebsite();
    }
}

void Menu::selectFirmware() {
    auto& controller = controller_;  // the menu may be destroyed once the choice is made
    const auto chosen = dialogs_.chooseFile(words("Choose a firmware file for the pedal"),
                                            {words("Firmware files"), {"bin"}});
    if ((chosen.answer == panelOk || chosen.answer == panelContinue) && !chosen.path.empty()) {
        controller.installFirmware(chosen.path);
    }
}

}  // namespace kzq
