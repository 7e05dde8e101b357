#pragma once

#include "ctl/commands/export_plan.h"
#include "ctl/commands/pedal_command.h"

namespace kzq::ctl {

/// Converts files and writes them to the pedal.
class ExportCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::optional<Explanation> stage(PedalWorker& pedal, const Loops& loops,
                                     const std::vector<SlotNumber>& slots);
    std::optional<Explanation> stageFile(PedalWorker& pedal, const std::filesystem::path& source,
                                         SlotNumber slot, const Loops& loops);
    Result<ConvertedFile> convert(PedalWorker& pedal, const std::filesystem::path& source);
    void showSpace(const Loops& loops);
    bool overwrites() const;

    std::optional<Explanation> obstacleNow(PedalWorker& pedal, Loops& loops,
                                           const std::vector<SlotNumber>& slots, const char* consequence);
    void send(PedalWorker& pedal, Loops loops);
    void written(SlotNumber slot, const ExportInfo& info);

    WorkingCopies* copies_ = nullptr;  ///< of this run
    Exports exports_;
    Tally tally_;
};

}  // namespace kzq::ctl
