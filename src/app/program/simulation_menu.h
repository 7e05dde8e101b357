#pragma once

namespace kzq {

class MainWindow;

namespace simulator {
class SimulatedPedal;
}

/// Marks the pedal as simulated in the window's title, and adds an entry to the menu bar that unplugs it and
/// plugs it back in. The pedal outlives the window. Main thread.
void showSimulation(MainWindow& window, simulator::SimulatedPedal& pedal, bool pluggedIn);

}  // namespace kzq
