#pragma once

#include <atomic>

#include "ctl/commands/firmware_offer.h"
#include "ctl/commands/pedal_command.h"
#include "operations/flash.h"

namespace kzq::ctl {

/// Replaces the pedal's firmware: by what the maker's server offers, verified, or by a file of the user's.
///
/// Once the pedal has been asked to take it, nothing ends the program before the image is complete or has
/// failed, and the exit code says what became of it. A user who presses Ctrl-C is asked to wait.
class FirmwareInstallCommand : public PedalCommand {
  public:
    using PedalCommand::PedalCommand;

    std::optional<ExitCode> obstructed() override;
    void cancel() override;

  protected:
    bool takesLoader() const override { return true; }
    ExitCode work(Pedal& pedal) override;

  private:
    std::optional<ExitCode> choose(Pedal& pedal, const std::string& installed);
    void explain(const std::string& installed, bool blank);
    ExitCode install(Pedal& pedal);
    std::shared_ptr<void> keepAwake(Pedal& pedal);
    void enter(Pedal& pedal, FlashPhase phase);
    void askToWait();
    bool isInstalled(const FlashEnd& end) const;
    ExitCode finish(const FlashEnd& end);

    FirmwareImage image_;
    std::string version_;                ///< that of the image; empty for a file
    bool consentMissing_ = false;        ///< the pedal left a request unanswered before it restarted
    std::atomic<bool> sending_ = false;  ///< the image is not complete
    std::string waitsFor_;               ///< on the command's thread
};

}  // namespace kzq::ctl
