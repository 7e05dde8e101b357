#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ctl/commands/command.h"
#include "operations/pedal.h"

namespace kzq::ctl {

/// A command that does one thing after the other, on a background thread; the main thread stays free for
/// signals and for the cable.
class PedalCommand : public Command, public std::enable_shared_from_this<PedalCommand> {
  public:
    explicit PedalCommand(Context context);

    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override;
    bool mustFinish() const override { return pedal_ && pedal_->restartExpected(); }
    void cancel() override;

  protected:
    /// Whether a pedal that runs only its loader will do.
    virtual bool takesLoader() const { return false; }
    /// The command from its first to its last step, on its own thread.
    virtual ExitCode work(Pedal& pedal) = 0;

    // For `work`.

    const Options& options() const { return context_.options; }
    const Context& context() const { return context_; }
    Report& report() { return report_; }
    /// Says why the command ends here, for `return stop(...)`.
    template <class... Why>
    ExitCode stop(const Why&... why) const {
        return context_.explain(why...);
    }
    /// Asks the user, unless that was answered beforehand. Nothing when the answer is yes; otherwise it has
    /// been said that nothing was changed.
    std::optional<ExitCode> declined(Pedal& pedal, const std::string& question) const;
    /// Reports a loop that is not what it should be; `done` as in operations/sentences.
    void failed(std::string_view done, const SlotOutcome& outcome);
    /// Says how it all went; `summary` for people.
    ExitCode conclude(std::string_view done, const Outcome& outcome, const std::string& summary);

  private:
    Context context_;
    Report report_;
    std::shared_ptr<Pedal> pedal_;  ///< from the arrival to the end of the work
    bool found_ = false;
};

}  // namespace kzq::ctl
