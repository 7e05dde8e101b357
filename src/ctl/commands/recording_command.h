#pragma once

#include <memory>

#include "ctl/commands/command.h"

namespace kzq::ctl {

/// Converts a recording of a session, without a pedal.
class RecordingCommand : public Command, public std::enable_shared_from_this<RecordingCommand> {
  public:
    explicit RecordingCommand(Context context) : context_(std::move(context)) {}

    bool withoutPedal() override;
    void connected(const std::shared_ptr<KZQ7306>& /*looper*/) override {}
    void disconnected() override {}
    /// The new file has no name before its end, so none is left.
    void cancel() override { context_.fail(ExitCode::cancelled, "Cancelled."); }

  private:
    Context context_;
};

}  // namespace kzq::ctl
