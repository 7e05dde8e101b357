// emulated_pedal [missing-rule]: until the end of its input, a simulated pedal on an emulated bus of its own,
// whose folder it prints. Programs find it there that have the folder in UMOCKDEV_DIR; they and this run
// under umockdev-wrapper.

#include <cstdlib>
#include <iostream>
#include <string>

#include "device/simulator/emulated/umock_pedal.h"
#include "device/simulator/synthesiser.h"
#include "platform/standard_executor.h"

int main(int argc, char** /*argv*/) {
    kzq::StandardExecutor executor;
    kzq::simulator::SimulatedPedal pedal(executor, {.memory = kzq::simulator::demonstrationMemory()});
    kzq::UmockPedal bus(pedal);
    bus.rules().checksRecipient = argc > 1;
    pedal.plugIn();
    std::cout << std::getenv("UMOCKDEV_DIR") << std::endl;  // NOLINT(concurrency-mt-unsafe): set before
    for (std::string line; std::getline(std::cin, line);) {
    }
    return EXIT_SUCCESS;
}
