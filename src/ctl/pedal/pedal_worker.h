#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "ctl/speech/sentences.h"
#include "device/kzq7306.h"
#include "device/silence.h"
#include "loops/slot_number.h"

namespace kzq::ctl {

/// The pedal for a command that does one thing after the other: every call waits for its end. Once the
/// command has to end (cancelled, unplugged, silent, busy), the call that runs stops, in the pedal's own way
/// as long as that works, and all later ones fail at once.
class PedalWorker : public std::enable_shared_from_this<PedalWorker> {
  public:
    /// Of one loop: how many bytes have moved. Comes on the link's thread.
    using Progress = std::function<void(std::uint64_t bytes)>;

    /// `patience` 0: for ever. `executor` outlives it.
    PedalWorker(Executor& executor, std::shared_ptr<KZQ7306> looper, Executor::Duration patience);

    /// Comes first. Main thread.
    void start();

    // --- the command's thread, which is a background one

    /// What the pedal holds. Without it the work has ended.
    std::optional<Status> status();
    /// The WAV image of one loop; otherwise the work has ended, or trouble() tells why.
    std::optional<std::vector<std::uint8_t>> importLoop(SlotNumber slot, Progress progress);
    /// The working copy must stay where it is. False: the work has ended, or trouble() tells why.
    bool exportLoop(const ExportInfo& info, Progress progress);
    /// How many the pedal agreed to erase; what became of them is only told by the next status. Nothing: it
    /// was not told, and the work has ended.
    std::optional<std::uint8_t> eraseLoops(const std::vector<SlotNumber>& slots);
    /// Whether the last transfer was begun, so that the pedal may have done some of it.
    bool begun() const { return begun_; }
    /// Does something that may take for ever and can be left behind: `task` runs on a thread of its own and
    /// may outlast everything the caller has. False when the work ended first.
    bool attempt(std::function<void()> task);

    // --- any thread

    /// Ends the work for this reason; only the first one counts. The main thread brings the news of the user
    /// and of the cable, the command's thread those of a pedal that does not answer.
    void end(const Explanation& reason);
    /// Why the last loop failed.
    Trouble trouble() const;
    /// Why the work has to end, if it has to.
    std::optional<Explanation> ended() const;
    /// Set when the work has to end.
    const std::atomic<bool>& endedFlag() const { return endedFlag_; }
    /// The work is done; nothing is watched any more.
    void rest();

  private:
    struct Result;
    using Done = std::function<void()>;
    using Batch = std::function<bool(const std::shared_ptr<Result>&, Done)>;

    bool perform(bool leavable, const std::function<void(Done)>& operation);
    std::shared_ptr<Result> transfer(const Batch& batch);
    void begin(const std::shared_ptr<Result>& result, const Batch& batch, const Done& done);
    void inspect(Result& result);
    void settle(const Result& result);
    void lose();
    void endByForce();
    bool transferring() const;

    Executor& executor_;
    const std::shared_ptr<KZQ7306> looper_;
    const Executor::Duration limit_;
    std::optional<SilenceWatch> watch_;  ///< since the start
    std::atomic<bool> endedFlag_ = false;
    std::atomic<bool> begun_ = false;

    mutable std::mutex mutex_;  ///< guards what follows
    Condition changed_;
    std::optional<Explanation> end_;
    std::optional<Trouble> trouble_;  ///< of the last loop
    unsigned started_ = 0;            ///< operations
    unsigned finished_ = 0;           ///< the last operation that finished
    bool leavable_ = false;           ///< nobody waits for the last operation once the work has ended
    bool abandoned_ = false;          ///< the operation hangs for ever
};

}  // namespace kzq::ctl
