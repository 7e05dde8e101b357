#include "ctl/loop_writer.h"

namespace kzq::ctl {

LoopWriter::Outcome LoopWriter::write(const ExportInfo& info) {
    if (pedal_.exportLoop(info, step(info.destination, "writing"))) {
        return {};
    }
    const auto why = explainExport(pedal_.failure());
    const std::string name = "Loop " + std::to_string(info.destination);
    return {why.code, std::string(failureName(pedal_.failure())), name + " was not written: " + why.sentence,
            pedal_.begun() ? name + " was being written; the slot may now be empty." : ""};
}

LoopWriter::Outcome LoopWriter::readBack(std::uint8_t slot, const Check& same) {
    const std::string name = "Loop " + std::to_string(slot);
    const auto image = pedal_.importLoop(slot, step(slot, "checking"));
    if (!image) {
        const auto why = explainLoop(pedal_.failure());
        return {why.code, std::string(failureName(pedal_.failure())),
                name + " was written but could not be read back: " + why.sentence,
                name + " was written but not compared."};
    }
    if (!same(*image)) {
        return {ExitCode::someFailed, "differs", name + " does not match what was written.", {}};
    }
    return {};
}

PedalWorker::Progress LoopWriter::step(std::uint8_t slot, const char* what) {
    progress_->begin("Loop " + std::to_string(slot) + ", " + what);
    return [progress = progress_](std::uint64_t bytes) { progress->update(bytes); };
}

}  // namespace kzq::ctl
