#pragma once

#include "ctl/commands/firmware_offer.h"
#include "ctl/commands/pedal_command.h"

namespace kzq::ctl {

/// Shows the firmware that the pedal runs and the one that is offered.
class FirmwareCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

  protected:
    bool takesLoader() const override { return true; }
    ExitCode work(Pedal& pedal) override;

  private:
    void show(const std::string& installed, const Result<FirmwareOffer>& offer);
};

}  // namespace kzq::ctl
