#include "app/program/simulation_menu.h"

#include <QAction>
#include <QMenuBar>

#include "app/main_window.h"
#include "device/simulator/simulated_pedal.h"

namespace kzq {

void showSimulation(MainWindow& window, simulator::SimulatedPedal& pedal, bool pluggedIn) {
    window.setWindowTitle(window.windowTitle() + " \u2013 simulated pedal");
    auto* const plug = window.menuBar()->addMenu("&Simulation")->addAction("&Pedal Plugged In");
    plug->setCheckable(true);
    plug->setChecked(pluggedIn);
    plug->setShortcut(QKeySequence("Ctrl+P"));
    // Also under the shield: cables come out at the worst moment.
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
