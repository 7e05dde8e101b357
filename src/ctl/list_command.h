#pragma once

#include <memory>

#include "ctl/command.h"
#include "ctl/patience.h"
#include "ctl/status_reading.h"

namespace kzq::ctl {

/// Shows what the pedal holds.
class ListCommand : public Command, public std::enable_shared_from_this<ListCommand> {
  public:
    explicit ListCommand(Context context) : context_(std::move(context)) {}

    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override { unplugged_ = true; }
    void cancel() override { context_.finish(ExitCode::cancelled); }

  private:
    void show(const StatusReading& reading);

    Context context_;
    std::shared_ptr<Patience> patience_;
    bool unplugged_ = false;
};

}  // namespace kzq::ctl
