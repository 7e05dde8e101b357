#pragma once

#include <memory>

#include "ctl/commands/command.h"

namespace kzq::ctl {

/// Shows what keeps the user from using the pedal, and the commands that fix it. If asked, runs those that
/// set up the system and looks again, or undoes that; and saves a report.
class DoctorCommand : public Command, public std::enable_shared_from_this<DoctorCommand> {
  public:
    explicit DoctorCommand(Context context) : context_(std::move(context)) {}

    bool withoutPedal() override;
    void connected(const std::shared_ptr<KZQ7306>& /*looper*/) override {}
    void disconnected() override {}
    /// What root runs already goes on.
    void cancel() override { context_.fail(ExitCode::cancelled, "Cancelled."); }

  private:
    /// On a thread of the pool.
    ExitCode work() const;
    void show(const std::vector<Finding>& findings) const;
    /// What is found in the end. Otherwise why nothing was installed.
    Result<std::vector<Finding>> install(const Trouble& missing) const;
    /// Undoes it.
    ExitCode remove() const;
    ExitCode summary(const std::vector<Finding>& findings) const;
    Result<void> save(const std::vector<Finding>& findings) const;

    Context context_;
};

}  // namespace kzq::ctl
