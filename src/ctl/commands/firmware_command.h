#pragma once

#include "ctl/commands/firmware_offer.h"
#include "ctl/commands/worker_command.h"

namespace kzq::ctl {

/// Shows the firmware that the pedal runs and the one that is offered.
class FirmwareCommand : public WorkerCommand {
  public:
    using WorkerCommand::WorkerCommand;

  protected:
    bool takesLoader() const override { return true; }
    ExitCode work(PedalWorker& pedal) override;

  private:
    void show(const std::string& installed, const Result<FirmwareOffer>& offer);
};

}  // namespace kzq::ctl
