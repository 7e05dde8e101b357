#pragma once

#include <functional>
#include <memory>

#include "audio/wave.h"
#include "ctl/pedal/pedal_worker.h"
#include "ctl/speech/progress_line.h"
#include "ctl/speech/tally.h"
#include "loops/slot_number.h"

namespace kzq::ctl {

/// Writes loops to the pedal and, when that is wanted, reads them back.
class LoopWriter {
  public:
    /// The result for one loop; `sentence` is empty on success.
    struct Outcome {
        ExitCode code = ExitCode::ok;
        std::string reason;  ///< a word for programs
        std::string sentence;
        std::string doubt;  ///< what becomes of the slot if the work ended meanwhile
    };
    /// Whether the image that was read back has the audio that was sent.
    using Check = std::function<bool(ByteView image)>;

    LoopWriter(PedalWorker& pedal, std::shared_ptr<ProgressLine> progress)
        : pedal_(pedal), progress_(std::move(progress)) {}

    Outcome write(SlotNumber slot, const ExportInfo& info);
    /// The pedal's own table has the last word on what it holds.
    Outcome confirm(SlotNumber slot, const ExportInfo& info);
    Outcome readBack(SlotNumber slot, const Check& same);

  private:
    PedalWorker::Progress step(SlotNumber slot, const char* action, const char* what);

    PedalWorker& pedal_;
    std::shared_ptr<ProgressLine> progress_;
};

}  // namespace kzq::ctl
