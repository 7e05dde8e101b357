#pragma once

#include <atomic>
#include <memory>

#include "ctl/commands/command.h"

namespace kzq::ctl {

/// Converts a file, or standard input, to the pedal's format, without a pedal.
class ConvertCommand : public Command, public std::enable_shared_from_this<ConvertCommand> {
  public:
    explicit ConvertCommand(Context context) : context_(std::move(context)) {}

    bool withoutPedal() override;
    std::optional<ExitCode> obstructed() override;
    void connected(const std::shared_ptr<KZQ7306>& /*looper*/) override {}
    void disconnected() override {}
    void cancel() override { cancelled_ = true; }

  private:
    void done(const Result<ConvertedFile>& file);
    void report(const ConvertedFile& file) const;

    Context context_;
    std::atomic<bool> cancelled_ = false;
};

}  // namespace kzq::ctl
