#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "device/kzq7306.h"
#include "device/silence.h"
#include "loops/export_info.h"
#include "loops/frames.h"
#include "loops/slot_number.h"
#include "loops/status.h"
#include "platform/executor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

/// The pedal for code that does one thing after the other: every call waits for its end. Once the work is
/// stopped (cancelled, unplugged, silent), the call that waits ends in the pedal's own way as long as that
/// works, and all later ones fail at once. One of these belongs to one run of one operation, so a late cancel
/// never meets the next.
class Pedal : public std::enable_shared_from_this<Pedal>, Fixed {
  public:
    struct Limits {
        /// How long one USB call may stay unanswered; 0: for ever. After that the work is stopped, or, if
        /// there is one, `silent` is called, again and again, on a thread of the pool.
        Executor::Duration silence{};
        std::function<void()> silent = {};
        /// Once stopped, questions are left to themselves at once, and so are transfers that no reset ends:
        /// for a program that ends then.
        bool leaveBehind = false;
    };
    /// `bytes` so far in this batch: of all its loops together. On the link's thread, like those below, and
    /// only while the call waits.
    using Moved = std::function<void(SlotNumber slot, std::uint64_t bytes)>;
    /// What has just arrived of a loop, its padding included, before it counts as moved; holds only until
    /// this returns.
    using Arrived = std::function<void(SlotNumber slot, ByteView audio)>;
    /// The WAV image of a loop, or why there is none.
    using Read = std::function<void(SlotNumber slot, Result<Bytes> image)>;
    /// The audio that was sent.
    using Sent = std::function<void(SlotNumber slot, Result<Frames> sent)>;

    /// `executor` outlives it.
    static std::shared_ptr<Pedal> create(Executor& executor, std::shared_ptr<KZQ7306> link, Limits limits);

    // --- The operation's thread, which is one of the pool. All of these wait for the pedal; their error is
    // why the work has been stopped, or what is said there.

    /// What the pedal holds. tableIncomplete: it did not come whole in three tries.
    Result<Status> status();
    /// One batch of the link, in this order. busy: it was refused, and nothing has been called. A loop that
    /// fails is no error.
    Result<void> importLoops(const std::vector<SlotNumber>& slots, const Moved& moved, const Read& read,
                             const Arrived& arrived = {});
    /// The same; the working copies must stay where they are.
    Result<void> exportLoops(const Exports& exports, const Moved& moved, const Sent& sent);
    /// How many the pedal agreed to erase, also if the work was stopped meanwhile. What became of them only
    /// the next status shows.
    Result<std::size_t> eraseLoops(const std::vector<SlotNumber>& slots);
    /// Whether the link took the last batch, so that the pedal may have done some of it.
    bool begun() const { return begun_; }
    /// The next batch begins only if `still()`; otherwise it fails (changed). It is asked on the link's
    /// thread, under the device lock, once the pedal has answered whether it is busy.
    void guardNext(std::function<bool()> still) { still_ = std::move(still); }
    /// Does something else that may take for ever, such as asking the user. It runs on a thread of its own
    /// and may outlast everything the caller has. False when the work ended first.
    bool aside(const Executor::Task& task);

    // --- Any thread.

    /// Only the first reason counts.
    void stop(const Trouble& why);
    /// The pedal has left, or is back in this stage.
    void left();
    void returned(char stage);
    /// Why the work is stopped, if it is.
    std::optional<Trouble> stopped() const;
    /// Set when it is.
    const std::atomic<bool>& stoppedFlag() const { return stoppedFlag_; }

    // --- For an update of the firmware, during which the pedal leaves and comes back.

    /// How long the news that a pedal has left may be behind the failure of its last transfer.
    static constexpr Executor::Duration departureNotice = std::chrono::milliseconds(500);
    struct Cable {
        unsigned departures = 0;  ///< since expectRestart
        char stage = stageNone;   ///< at the last return since then; none after a departure
    };
    /// False if the work is stopped already. Otherwise, from here on, neither a departure ends it nor a call
    /// that stays silent, for which `silent` is called, and `stop` only keeps its reason.
    bool expectRestart(Executor::Task silent);
    bool restartExpected() const;
    Cable cable() const;
    void forgetReturn();

    Executor& executor() const { return executor_; }
    const std::shared_ptr<KZQ7306>& link() const { return link_; }
    const Limits& limits() const { return limits_; }

  private:
    class Batch;
    using Done = std::function<void()>;
    using Start = std::function<bool(const std::shared_ptr<Batch>&)>;

    Pedal(Executor& executor, std::shared_ptr<KZQ7306> link, Limits limits);

    bool perform(bool leavable, const std::function<void(Done)>& task);
    Result<void> transfer(const Start& start);
    void begin(const std::shared_ptr<Batch>& batch, const Start& start);
    void whileAwaited(const Executor::Task& report);
    bool answers();
    Trouble lose();
    void insist(std::uint64_t call);
    bool underWay() const;
    void leave();
    void fellSilent();

    Executor& executor_;
    const std::shared_ptr<KZQ7306> link_;
    const Limits limits_;
    std::optional<SilenceWatch> watch_;
    std::atomic<bool> stoppedFlag_ = false;
    std::atomic<bool> begun_ = false;
    std::function<bool()> still_;  ///< of the operation's thread

    mutable std::mutex mutex_;  ///< guards what follows
    Condition changed_;
    std::optional<Trouble> stopped_;
    Cable cable_;
    Executor::Task silentInUpdate_;
    unsigned started_ = 0;     ///< tasks
    unsigned finished_ = 0;    ///< the last task that finished
    bool leavable_ = false;    ///< nobody waits for the last task once the work is stopped
    bool abandoned_ = false;   ///< the task hangs for ever
    bool reporting_ = false;   ///< a callback runs
    bool unattended_ = false;  ///< nobody waits any more, and nothing is reported
};

}  // namespace kzq
