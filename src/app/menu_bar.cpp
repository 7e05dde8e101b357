#include "app/menu_bar.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include "ui/fonts.h"
#include "ui/palette.h"

namespace kzq {

namespace {

void fillEditMenu(QMenu& menu, const MenuBarActions& actions) {
    menu.addAction("Select &All", actions.selectAll)->setShortcut(QKeySequence::SelectAll);
    menu.addSeparator();
    menu.addAction("&Bring Back\u2026", actions.bringBack)->setShortcut(QKeySequence("Ctrl+Z"));
    auto* const keep = menu.addAction("&Keep Copies");
    keep->setCheckable(true);
    const auto follow = [keep, on = actions.keepsCopies] { keep->setChecked(!on || on()); };
    follow();
    QObject::connect(&menu, &QMenu::aboutToShow, keep, follow);  // another program may have changed it
    QObject::connect(keep, &QAction::triggered, keep, [keep, turn = actions.keepCopies](bool on) {
        if (!turn(on)) {
            keep->setChecked(!on);
        }
    });
    QObject::connect(&menu, &QMenu::hovered, keep,
                     [keep, say = actions.explainKeep](QAction* entry) { say(entry == keep); });
    QObject::connect(&menu, &QMenu::aboutToHide, keep, [say = actions.explainKeep] { say(false); });
}

}  // namespace

void dressMenuBar(QMenuBar& bar) {
    bar.setNativeMenuBar(false);
    bar.setFont(textFont());
    bar.setStyleSheet(
        QString("QMenuBar { background: %1; color: %2; border: none; spacing: 4px; padding: 0px 22px; }"
                "QMenuBar::item { padding: 4px 10px; margin: 4px 0px; border-radius: 4px; background: "
                "transparent; }"
                "QMenuBar::item:selected { background: %3; }"
                "QMenu { background: %4; color: %2; border: 1px solid %5; padding: 4px; }"
                "QMenu::item { padding: 6px 28px; border-radius: 4px; }"
                "QMenu::item:selected { background: %3; }"
                "QMenu::item:disabled { color: %6; }"
                "QMenu::indicator { width: 12px; height: 12px; left: 8px; }"
                "QMenu::indicator:checked { image: url(:/pictures/Menu_check.svg); }")
            .arg(plateFootColor().name(), creamColor().name(), disabledFaceColor().lighter(130).name(),
                 panelColor().name(), outlineColor().name(), disabledWordColor().name()));
}

void fillMenuBar(QMenuBar& bar, const MenuBarActions& actions) {
    auto* const quit = bar.addMenu("&File")->addAction("&Quit", actions.quit);
    quit->setShortcut(QKeySequence("Ctrl+Q"));
    quit->setShortcutContext(Qt::ApplicationShortcut);  // even if the progress panel has the keyboard focus
    fillEditMenu(*bar.addMenu("&Edit"), actions);
    auto* const verify = bar.addMenu("&Loop")->addAction("&Verify After Export");
    verify->setCheckable(true);
    QObject::connect(verify, &QAction::toggled, verify, actions.verifyAfterExport);
    auto* const results = bar.addMenu("&View")->addAction("&Recent Results", actions.openResults);
    results->setShortcut(QKeySequence("Ctrl+R"));
    auto* const help = bar.addMenu("&Help");
    help->addAction("&Save Report\u2026", actions.saveReport);
    help->addAction("&About 7306 Loop Manager", actions.openAboutBox);
    for (auto* const menu : bar.findChildren<QMenu*>()) {
        menu->setFont(bar.font());  // a window of its own does not inherit it
    }
}

}  // namespace kzq
