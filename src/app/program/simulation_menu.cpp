#include "app/program/simulation_menu.h"

#include <QAction>
#include <QMenuBar>

#include "app/main_window.h"
#include "device/simulator/simulated_pedal.h"
#include "ui/qt_words.h"

namespace kzq {

void showSimulation(MainWindow& window, simulator::SimulatedPedal& pedal, bool pluggedIn) {
    window.setWindowTitle(toQt(words("%1 \u2013 simulated pedal", window.windowTitle().toStdString())));
    auto* const plug =
        window.menuBar()->addMenu(toQt(words("&Simulation")))->addAction(toQt(words("&Pedal Plugged In")));
    plug->setCheckable(true);
    plug->setChecked(pluggedIn);
    plug->setShortcut(QKeySequence("Ctrl+P"));
    // Also under the shield, which lets it through: cables come out at the worst moment.
    plug->setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(plug, &QAction::toggled, &window, [&pedal](bool plugged) {
        if (plugged) {
            pedal.plugIn();
        } else {
            pedal.unplug();
        }
    });
}

}  // namespace kzq
