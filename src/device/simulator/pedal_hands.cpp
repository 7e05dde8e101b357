// What a test or a person does to the pedal, and can see of it.

#include <memory>
#include <utility>

#include "device/simulator/simulated_pedal.h"
#include "loops/facts.h"

namespace kzq::simulator {

PedalMemory SimulatedPedal::memory() const {
    const Lock lock(mutex_);
    PedalMemory copy;
    for (std::size_t i = 0; i < loopSlots; ++i) {
        if (loops_.at(i)) {
            copy.at(i) = loops_.at(i)->loaded();
        }
    }
    return copy;
}

void SimulatedPedal::setLoop(std::uint8_t address, std::optional<StoredLoop> loop) {
    LoopPointer pointer;
    if (loop) {
        pointer = std::make_shared<StoredLoop>(std::move(*loop));
    }
    const Lock lock(mutex_);
    loops_.at(address) = std::move(pointer);
}

void SimulatedPedal::setMemoryListener(MemoryListener listener) {
    const Lock lock(mutex_);
    memoryListener_ = std::move(listener);
}

void SimulatedPedal::setVersion(const std::string& version) {
    const Lock lock(mutex_);
    version_ = version;
}

void SimulatedPedal::setNextVersion(const std::string& version) {
    const Lock lock(mutex_);
    nextVersion_ = version;
}

void SimulatedPedal::setStage(char stage) {
    const Lock lock(mutex_);
    stage_ = stage;
}

void SimulatedPedal::setBusy(bool busy) {
    const Lock lock(mutex_);
    busy_ = busy;
}

void SimulatedPedal::setSequence(std::uint8_t sequence) {
    const Lock lock(mutex_);
    sequence_ = sequence;
}

void SimulatedPedal::plan(const Fault& fault) {
    const Lock lock(mutex_);
    faults_.add(fault);
}

void SimulatedPedal::clearFaults() {
    const Lock lock(mutex_);
    faults_.clear();
}

void SimulatedPedal::setReturns(bool returns) {
    const Lock lock(mutex_);
    returns_ = returns;
}

std::vector<WireEvent> SimulatedPedal::journal() const {
    const Lock lock(mutex_);
    return journal_.events();
}

void SimulatedPedal::clearJournal() {
    const Lock lock(mutex_);
    journal_.clear();
}

std::vector<std::string> SimulatedPedal::violations() const {
    const Lock lock(mutex_);
    return journal_.violations();
}

std::optional<Bytes> SimulatedPedal::installedFirmware() const {
    const Lock lock(mutex_);
    return loader_.installedImage();
}

}  // namespace kzq::simulator
