#pragma once

#include "ctl/commands/firmware_flash.h"
#include "ctl/commands/firmware_offer.h"
#include "ctl/commands/worker_command.h"

namespace kzq::ctl {

/// Replaces the pedal's firmware: by what the maker's server offers, verified, or by a file of the user's.
///
/// Once the pedal has been asked to take it, nothing ends the program before the image is complete or has
/// failed, and the exit code says which. A user who presses Ctrl-C is asked to wait.
class FirmwareInstallCommand : public WorkerCommand {
  public:
    explicit FirmwareInstallCommand(Context context);

    std::optional<Explanation> obstacle() override;
    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override;
    void cancel() override;
    bool mustFinish() const override { return flash_->begun(); }

  protected:
    bool takesLoader() const override { return true; }
    ExitCode work(PedalWorker& pedal) override;

  private:
    std::optional<ExitCode> choose(PedalWorker& pedal, const std::string& installed);
    void explain(const std::string& installed);
    ExitCode install(PedalWorker& pedal);
    std::shared_ptr<void> keepAwake(PedalWorker& pedal);

    const std::shared_ptr<FirmwareFlash> flash_;
    bool blank_ = false;  ///< the pedal was in its loader already
    FirmwareImage image_;
    std::string version_;  ///< that of the image; empty for a file
};

}  // namespace kzq::ctl
