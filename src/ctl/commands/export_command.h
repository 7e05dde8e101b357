#pragma once

#include "ctl/commands/conversions.h"
#include "ctl/commands/pedal_command.h"
#include "operations/export.h"

namespace kzq::ctl {

/// Converts files and writes them to the pedal.
class ExportCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    ExitCode work(Pedal& pedal) override;

  private:
    ExitCode stageAndWrite(Pedal& pedal, Conversions& conversions, const std::vector<SlotNumber>& slots,
                           const Loops& loops);
    std::optional<ExitCode> stage(const Pedal& pedal, const std::filesystem::path& source,
                                  const Result<ConvertedFile>& file, SlotNumber slot, const Loops& loops);
    Outcome write(Pedal& pedal, const Loops& loops);
    void tell(const SlotOutcome& outcome);

    Exports exports_;
};

}  // namespace kzq::ctl
