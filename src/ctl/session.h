#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include "ctl/commands/command.h"
#include "ctl/pedal/environment.h"
#include "device/kzq7306_delegate.h"
#include "device/link.h"
#include "device/silence.h"

namespace kzq::ctl {

/// Gets hold of the pedal for a command: finds out whether it is connected, explains why it cannot be used,
/// waits for it as long as the user wants, and hands the link's reports on. The link holds it weakly.
class Session : public KZQ7306Delegate, public std::enable_shared_from_this<Session> {
  public:
    /// `environment` and what `context` refers to outlive it.
    Session(const Environment& environment, Context context, std::shared_ptr<Command> command);

    /// Main thread; `KZQ7306::load` comes before. `link` gives the link once it is initialized.
    void start(const Link& link);
    /// Nothing is reported any more.
    void end() { over_ = true; }

    void looperIsConnected(KZQ7306& looper) override;
    void looperHasBeenDisconnected() override;
    void looperInternalStateChanged(const Status& status) override;

  private:
    void settle();
    void look();
    bool doubtful();
    bool explainFailure();
    void watchArrival();
    /// A command that has found its pedal deals with departures itself.
    bool waiting() const { return !over_ && !(watching_ ? connected_ : found_); }

    const Environment& environment_;
    Context context_;
    std::shared_ptr<Command> command_;
    std::shared_ptr<KZQ7306> looper_;  ///< since the start
    bool watching_;
    Executor::TimePoint deadline_;
    std::optional<Trouble> seen_;   ///< the trouble that was there at the last look
    std::optional<Trouble> inUse_;  ///< another program has the pedal, and the user wants to wait
    bool gaveTime_ = false;
    std::atomic<bool> connected_ = false;
    std::atomic<bool> found_ = false;  ///< it was connected once
    std::atomic<bool> over_ = false;
    std::optional<SilenceWatch> watch_;
};

}  // namespace kzq::ctl
