#pragma once

#include <atomic>
#include <memory>

#include "ctl/commands/command.h"
#include "ctl/pedal/environment.h"
#include "ctl/session.h"

namespace kzq::ctl {

/// The program, from its options to its exit code. Main thread.
class Tool {
  public:
    /// `environment` outlives it. Takes the log: it goes to standard error when that is wanted, else nowhere.
    Tool(Options options, const Environment& environment);

    void start();
    /// The user (or the system) wants an end: the first time in good order, the second time at once.
    /// While firmware is on its way to the pedal neither ends it.
    void interrupt();

  private:
    Context context();
    void finish(ExitCode code);

    const Options options_;
    const Environment& environment_;
    std::shared_ptr<Output> output_;
    std::shared_ptr<Command> command_;
    std::shared_ptr<Session> session_;
    bool interrupted_ = false;
    std::atomic<bool> finished_ = false;
};

}  // namespace kzq::ctl
