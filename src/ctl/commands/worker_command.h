#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ctl/commands/command.h"
#include "ctl/pedal/pedal_worker.h"
#include "ctl/speech/report.h"

namespace kzq::ctl {

/// A command that does one thing after the other, on a background thread; the main thread stays free for
/// signals and for the cable.
class WorkerCommand : public Command, public std::enable_shared_from_this<WorkerCommand> {
  public:
    explicit WorkerCommand(Context context);

    void connected(const std::shared_ptr<KZQ7306>& looper) override;
    void disconnected() override;
    void cancel() override;

  protected:
    /// Whether a pedal that runs only its loader will do.
    virtual bool takesLoader() const { return false; }
    /// The command from its first to its last step, on its own thread.
    virtual ExitCode work(PedalWorker& pedal) = 0;

    // For `work`.

    const Options& options() const { return context_.options; }
    const Context& context() const { return context_; }
    const std::shared_ptr<KZQ7306>& looper() const { return looper_; }
    Report& report() { return report_; }
    /// Says it, for `return stop(...)`.
    ExitCode stop(const Explanation& explanation) const;
    /// The pedal cannot be used any more: says why.
    ExitCode stop(const PedalWorker& pedal) const;
    /// Says how it all went.
    ExitCode conclude(const PedalWorker& pedal, const Tally& tally, const std::string& summary);
    /// Asks the user, unless that was answered beforehand. Nothing when the answer is yes; otherwise it has
    /// been said that nothing was changed.
    std::optional<ExitCode> declined(PedalWorker& pedal, const std::string& question) const;
    /// What ends a command whose loops are no longer those that the user was asked about.
    static constexpr const char* nothingDone = "nothing was written or erased";
    static constexpr const char* nothingMore = "nothing more was written or erased";
    /// Reads the table once more, directly before something is written or erased, and hands it out in
    /// `loops`, which was the one when the user was asked. If one of `slots` is not what it was then, or the
    /// table cannot be read, it is why the command ends, with this `consequence`.
    static std::optional<Explanation> changedSince(PedalWorker& pedal, Loops& loops,
                                                   const std::vector<SlotNumber>& slots,
                                                   const char* consequence = nothingDone);
    /// The same, of a table that has been read.
    static std::optional<Explanation> changedBetween(const Loops& before, const Loops& now,
                                                     const std::vector<SlotNumber>& slots,
                                                     const char* consequence);
    /// Why nothing is changed when the table gives one of `slots` a length that cannot be.
    static std::optional<Explanation> impossibleLength(const Loops& loops,
                                                       const std::vector<SlotNumber>& slots);
    void failed(Tally& tally, SlotNumber slot, std::string_view reason, const Explanation& explanation);

  private:
    Context context_;
    Report report_;
    std::shared_ptr<KZQ7306> looper_;  ///< since the pedal was found
    std::shared_ptr<PedalWorker> pedal_;
};

/// Erases and looks afterwards which loops are gone; the others are reported and counted as failures. Nothing
/// when the work has ended, otherwise what the pedal holds now.
std::optional<Loops> eraseAndLook(PedalWorker& pedal, Report& report, const std::vector<SlotNumber>& slots,
                                  Tally& tally);

}  // namespace kzq::ctl
