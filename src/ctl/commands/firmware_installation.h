#pragma once

#include "ctl/commands/command.h"
#include "ctl/commands/firmware_flash.h"
#include "ctl/commands/firmware_offer.h"

namespace kzq::ctl {

/// The installation from the first request to the pedal's return: reports its phases and how it ended. The
/// command's thread.
class FirmwareInstallation {
  public:
    FirmwareInstallation(const Context& context, Report& report, std::shared_ptr<FirmwareFlash> flash,
                         std::shared_ptr<KZQ7306> looper)
        : context_(context), report_(report), flash_(std::move(flash)), looper_(std::move(looper)) {}

    /// `blank`: the pedal is in its loader already.
    ExitCode run(FirmwareImage image, bool blank);

  private:
    bool await(const std::string& what, Executor::Duration extra, const FirmwareFlash::Ready& ready);
    std::optional<Explanation> flash(FirmwareImage image, bool blank);
    std::optional<Explanation> enterLoader();
    std::optional<Explanation> sendImage(std::size_t bytes);
    ExitCode awaitReturn();

    void tellPhase(const char* phase, const std::string& sentence);
    ExitCode finished(bool installed, const Explanation& end);

    const Context& context_;
    Report& report_;
    const std::shared_ptr<FirmwareFlash> flash_;
    const std::shared_ptr<KZQ7306> looper_;
    std::string version_;  ///< that the pedal reports when it is back
};

}  // namespace kzq::ctl
