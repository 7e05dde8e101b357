#include "ui/menu_look.h"

#include <QAction>
#include <QMenu>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/scale.h"

namespace kzq {

QString menuLook() {
    const auto pixels = [](int length) { return QString("%1px").arg(onScreen(length)); };
    return QString(
               "QMenu { background: %1; color: %2; border: %11 solid %3; padding: %4; }"
               "QMenu::item { padding: %5 %6; border-radius: %4; }"
               "QMenu::item:selected { background: %7; }"
               "QMenu::item:disabled { color: %8; }"
               "QMenu::separator { height: %11; background: %3; margin: %4 %10; }"
               "QMenu::indicator { width: %9; height: %9; left: %10; }"
               "QMenu::indicator:checked { image: url(:/pictures/Menu_check.svg); }")
        .arg(panelColor().name(), creamColor().name(), outlineColor().name(), pixels(4), pixels(6),
             pixels(28), disabledFaceColor().lighter(130).name(), disabledWordColor().name(), pixels(12))
        .arg(pixels(8), pixels(1));
}

void dressMenu(QMenu& menu) {
    menu.setStyleSheet(menuLook());
    menu.setFont(fontOnScreen(textFont()));  // a window of its own does not inherit it
    for (auto* const action : menu.actions()) {
        action->setIconVisibleInMenu(false);
    }
}

}  // namespace kzq
