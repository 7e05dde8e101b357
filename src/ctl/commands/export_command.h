#pragma once

#include "ctl/commands/export_plan.h"
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
    std::optional<ExitCode> stage(Pedal& pedal, const std::filesystem::path& source, SlotNumber slot,
                                  const Loops& loops);
    Result<ConvertedFile> convert(Pedal& pedal, const std::filesystem::path& source);
    Outcome write(Pedal& pedal, const Loops& loops);
    void tell(const SlotOutcome& outcome);

    WorkingCopies* copies_ = nullptr;  ///< of this run
    Exports exports_;
};

}  // namespace kzq::ctl
