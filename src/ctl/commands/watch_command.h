#pragma once

#include <memory>
#include <optional>

#include "ctl/commands/command.h"
#include "device/silence.h"

namespace kzq::ctl {

/// Shows the pedal's coming, going and changes.
class WatchCommand : public Command, public std::enable_shared_from_this<WatchCommand> {
  public:
    explicit WatchCommand(Context context) : context_(std::move(context)) {}

    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override;
    void changed(const Status& status) override;
    void cancel() override { context_.finish(ExitCode::cancelled); }

  private:
    void say(const std::string& text, const char* event);

    Context context_;
    std::optional<SilenceWatch> watch_;  ///< while the pedal is there
    std::optional<Status> last_;         ///< since the arrival
    bool present_ = false;
};

}  // namespace kzq::ctl
