#include "app/menu_bar.h"

#include <QAction>
#include <QActionGroup>
#include <QFontMetricsF>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

#include "app/window_size.h"
#include "ui/fonts.h"
#include "ui/menu_look.h"
#include "ui/palette.h"
#include "ui/qt_words.h"
#include "ui/scale.h"
#include "ui/status/status_look.h"

namespace kzq {

namespace {

constexpr int barHeight = 32;
constexpr int firstWord = 32;   // over the mark on the plate
constexpr int besideWord = 10;  // of the plate behind it
constexpr int spacing = 4;      // between two plates, and before the first

QString pixels(int length) {
    return QString("%1px").arg(onScreen(length));
}

/// Around a word and the plate behind it: together they fill the bar, and the word stands on the baseline of
/// the sentence beside it. The toolkit hides words that do not fit into the bar.
QString roomForWords() {
    const QFontMetricsF font(fontOnScreen(textFont()));
    const int words = qCeil(font.height());
    const int room = std::max(0, onScreen(barHeight) - words);
    const int outside = std::min(onScreen(4), room / 4);
    const int baseline = onScreen((barHeight - status::height) / 2) + onScreen(status::baseline);
    const auto ascent = (words - font.height()) / 2 + font.ascent();  // the toolkit puts it in the middle
    const int above = std::clamp(qRound(baseline - ascent) - outside, 0, room - 2 * outside);
    return QString("margin: %1px 0px; padding: %2px %3 %4px %3;")
        .arg(outside)
        .arg(above)
        .arg(pixels(besideWord))
        .arg(room - 2 * outside - above);
}

void dressMenus(const QMenuBar& bar) {
    for (auto* const menu : bar.findChildren<QMenu*>()) {
        menu->setFont(fontOnScreen(textFont()));  // a window of its own does not inherit it
    }
}

/// One of the usual sizes is marked while the window has it. Those for which the screen has no room cannot be
/// chosen.
void addSizes(QMenu& view, WindowSize& size) {
    auto* const sizes = new QActionGroup(&view);
    sizes->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const int percent : {75, 100, 125, 150, 200, 300}) {
        auto* const action =
            view.addAction(toQt(words("%1 %", percent)), [&size, percent] { size.set(percent); });
        action->setCheckable(true);
        action->setData(percent);
        sizes->addAction(action);
        QObject::connect(&view, &QMenu::aboutToShow, action,
                         [action, &size, percent] { action->setEnabled(size.fits(percent)); });
    }
    const auto mark = [sizes] {
        const int now = qRound(Scale::ofProgram().size() * 100);
        for (auto* const action : sizes->actions()) {
            action->setChecked(action->data().toInt() == now);
        }
    };
    mark();
    QObject::connect(&Scale::ofProgram(), &Scale::changed, sizes, mark);
    QObject::connect(sizes, &QActionGroup::triggered, sizes, mark);
    view.addAction(toQt(words("&Fit to Screen")), [&size] { size.fitScreen(); });
}

/// Whether the entry can act is asked when its menu opens, and again when it acts. In between it is enabled,
/// since nothing reports all that this depends on.
QAction* add(QMenu& menu, const QString& text, const MenuEntry& entry, const MenuBarActions& actions,
             const QKeySequence& keys = {}) {
    const auto can = [able = entry.can, covered = actions.covered] {
        return !(covered && covered()) && (!able || able());
    };
    auto* const action = menu.addAction(text);
    action->setShortcut(keys);
    action->setAutoRepeat(false);
    QObject::connect(&menu, &QMenu::aboutToShow, action, [action, can] { action->setEnabled(can()); });
    QObject::connect(&menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    QObject::connect(action, &QAction::triggered, action, [can, act = entry.act] {
        if (can()) {
            act();
        }
    });
    return action;
}

void addKeepCopies(QMenu& menu, const MenuBarActions& actions) {
    auto* const keep = menu.addAction(toQt(words("&Keep Copies")));
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

void fillEditMenu(QMenu& menu, const MenuBarActions& actions) {
    add(menu, toQt(words("Select &All")), actions.selectAll, actions, QKeySequence::SelectAll);
    add(menu, toQt(words("Select &None")), actions.selectNone, actions, QKeySequence("Ctrl+Shift+A"));
    add(menu, toQt(words("&Paste Files")), actions.pasteFiles, actions)->setShortcuts(QKeySequence::Paste);
    menu.addSeparator();
    add(menu, toQt(words("&Bring Back\u2026")), actions.bringBack, actions, QKeySequence("Ctrl+Z"));
    addKeepCopies(menu, actions);
}

/// P is only named here: it is a key of the rows, where a key that is held counts once.
void fillLoopMenu(QMenu& menu, const MenuBarActions& actions) {
    add(menu, toQt(words("&Play")) + "\tP", actions.play, actions);
    add(menu, toQt(words("&Rename")), actions.rename, actions, QKeySequence("F2"));
    add(menu, toQt(words("&Choose File\u2026")), actions.chooseFile, actions, QKeySequence("Ctrl+O"));
    add(menu, toQt(words("Re&move")), actions.remove, actions, QKeySequence(Qt::Key_Delete));
    menu.addSeparator();
    auto* const verify = menu.addAction(toQt(words("&Verify After Export")));
    verify->setCheckable(true);
    QObject::connect(verify, &QAction::toggled, verify, actions.verifyAfterExport);
}

void fillViewMenu(QMenu& menu, const MenuBarActions& actions) {
    add(menu, toQt(words("&Import")), actions.importTab, actions, QKeySequence("Ctrl+1"));
    add(menu, toQt(words("&Export")), actions.exportTab, actions, QKeySequence("Ctrl+2"));
    add(menu, toQt(words("&Recent Results")), actions.results, actions, QKeySequence("Ctrl+R"));
    if (actions.size != nullptr) {
        menu.addSeparator();
        addSizes(menu, *actions.size);
    }
}

void fillHelpMenu(QMenu& menu, const MenuBarActions& actions) {
    add(menu, toQt(words("&User Guide")), actions.userGuide, actions);
    add(menu, toQt(words("&Doctor\u2026")), actions.doctor, actions);
    menu.addSeparator();
    add(menu, toQt(words("&About 7306 Loop Manager")), actions.about, actions);
}

}  // namespace

void dressMenuBar(QMenuBar& bar) {
    bar.setNativeMenuBar(false);
    dress(bar, textFont());
    bar.setStyleSheet(
        QString("QMenuBar { background: %1; color: %2; border: none; spacing: %4; padding: 0px %5; }"
                "QMenuBar::item { %6 border-radius: %4; background: transparent; }"
                "QMenuBar::item:selected { background: %3; }")
            .arg(plateFootColor().name(), creamColor().name(), disabledFaceColor().lighter(130).name(),
                 pixels(spacing),
                 QString("%1px").arg(onScreen(firstWord) - onScreen(besideWord) - onScreen(spacing)),
                 roomForWords()) +
        menuLook());
    dressMenus(bar);
}

void fillFileMenu(QMenu& menu, const MenuBarActions& actions) {
    add(menu, toQt(words("&Import\u2026")), actions.importLoops, actions, QKeySequence("Ctrl+I"));
    add(menu, toQt(words("&Export\u2026")), actions.exportFiles, actions, QKeySequence("Ctrl+E"));
    menu.addSeparator();
    if (actions.backUp && actions.restore) {
        add(menu, toQt(words("Back &Up\u2026")), {actions.backUp}, actions);
        add(menu, toQt(words("&Restore\u2026")), {actions.restore}, actions);
        menu.addSeparator();
    }
    add(menu, toQt(words("&Save Report\u2026")), actions.saveReport, actions);
    menu.addSeparator();
    auto* const quit = menu.addAction(toQt(words("&Quit")), actions.quit);
    quit->setShortcut(QKeySequence("Ctrl+Q"));
    quit->setShortcutContext(Qt::ApplicationShortcut);  // even if the progress panel has the keyboard focus
}

void fillMenuBar(QMenuBar& bar, const MenuBarActions& actions) {
    fillFileMenu(*bar.addMenu(toQt(words("&File"))), actions);
    fillEditMenu(*bar.addMenu(toQt(words("&Edit"))), actions);
    fillLoopMenu(*bar.addMenu(toQt(words("&Loop"))), actions);
    fillViewMenu(*bar.addMenu(toQt(words("&View"))), actions);
    fillHelpMenu(*bar.addMenu(toQt(words("&Help"))), actions);
    dressMenus(bar);
}

}  // namespace kzq
