#pragma once

#include "audio/wave.h"
#include "ctl/commands/pedal_command.h"
#include "ctl/speech/progress_line.h"

namespace kzq::ctl {

/// Copies loops into files.
class ImportCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

    std::optional<Explanation> obstacle() override;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::vector<SlotNumber> wanted(const Loops& loops) const;
    void save(PedalWorker& pedal, SlotNumber slot, const Loop* loop);
    void notSaved(SlotNumber slot, std::string_view reason, const Explanation& why);
    void write(SlotNumber slot, const Bytes& image);
    std::string summary(const PedalWorker& pedal) const;

    std::shared_ptr<ProgressLine> progress_;
    Tally tally_;
    bool folderMade_ = false;
};

}  // namespace kzq::ctl
