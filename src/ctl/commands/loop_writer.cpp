#include "ctl/commands/loop_writer.h"

#include "loops/capacity.h"
#include "loops/facts.h"

namespace kzq::ctl {

LoopWriter::Outcome LoopWriter::write(SlotNumber slot, const ExportInfo& info) {
    if (pedal_.exportLoop(info, step(slot, "write", "writing"))) {
        return {};
    }
    const auto why = explainExport(pedal_.trouble().kind);
    const std::string name = loopName(slot);
    return {why.code, std::string(troubleName(pedal_.trouble().kind)),
            name + " was not written: " + why.sentence,
            pedal_.begun() ? name + " was being written; the slot may now be empty." : ""};
}

LoopWriter::Outcome LoopWriter::confirm(SlotNumber slot, const ExportInfo& info) {
    const std::string name = loopName(slot);
    const auto status = pedal_.status();
    if (!status) {
        const auto end = pedal_.ended().value_or(statusUnreadable());
        return {end.code, "no-status", end.sentence,
                name + " was sent; what the pedal holds of it was not checked."};
    }
    const auto* const loop = status->loops.find(slot);
    if (loop == nullptr || loop->samples != info.bytes / frameBytes) {
        return {
            ExitCode::someFailed, "differs", name + " was sent, but the pedal does not hold all of it.", {}};
    }
    return {};
}

LoopWriter::Outcome LoopWriter::readBack(SlotNumber slot, const Check& same) {
    const std::string name = loopName(slot);
    const auto image = pedal_.importLoop(slot, step(slot, "compare", "checking"));
    if (!image) {
        const auto why = explainLoop(pedal_.trouble().kind);
        return {why.code, std::string(troubleName(pedal_.trouble().kind)),
                name + " was sent but could not be read back: " + why.sentence,
                name + " was sent but not compared."};
    }
    if (!same(*image)) {
        return {ExitCode::someFailed, "differs", name + " does not match what was written.", {}};
    }
    return {};
}

PedalWorker::Progress LoopWriter::step(SlotNumber slot, const char* action, const char* what) {
    progress_->begin(slot, action, loopName(slot) + ", " + what);
    return [progress = progress_](std::uint64_t bytes) { progress->update(bytes); };
}

}  // namespace kzq::ctl
