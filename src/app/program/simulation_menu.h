#pragma once

namespace kzq {

class MainWindow;

namespace simulator {
class SimulatedPedal;
}

/// Says in the window's title that the pedal is the built-in one, and gives the menu bar an entry that pulls
/// it out and puts it back. The pedal outlives the window. Main thread.
void showSimulation(MainWindow& window, simulator::SimulatedPedal& pedal, bool pluggedIn);

}  // namespace kzq
