#include "device/simulator/simulation.h"

#include <utility>

#include "device/simulator/synthesiser.h"

namespace kzq::simulator {

Simulation::Simulation(Executor& executor, PedalMemory memory, LoopFolder folder)
    : folder_(std::move(folder)), pedal_(executor, {.memory = std::move(memory)}), port_(executor, pedal_) {}

Result<std::unique_ptr<Simulation>> Simulation::make(Executor& executor, const SimulationOrder& order) {
    PedalMemory memory;
    LoopFolder folder(order.folder, order.convert);
    if (order.folder.empty()) {
        memory = demonstrationMemory();
    } else {
        auto loaded = folder.load();
        if (!loaded) {
            return std::move(loaded.error());
        }
        memory = std::move(*loaded);
    }
    std::unique_ptr<Simulation> made(new Simulation(executor, std::move(memory), std::move(folder)));
    if (!order.folder.empty()) {
        made->pedal_.setMemoryListener([&kept = made->folder_](std::uint8_t address, const StoredLoop* loop) {
            kept.store(address, loop);
        });
    }
    for (const auto& text : order.faults) {
        const auto fault = faultFromText(text);
        if (!fault) {
            return Trouble{Trouble::Kind::badFault, text};
        }
        made->pedal_.plan(*fault);
    }
    return made;
}

}  // namespace kzq::simulator
