#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "device/device_lock.h"
#include "device/kzq7306_delegate.h"
#include "device/usb_port.h"
#include "device/wire.h"
#include "loops/export_info.h"
#include "loops/status.h"
#include "platform/bytes.h"
#include "platform/executor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

/// What the device link runs on; all of it outlives the link.
struct DeviceEnvironment {
    Executor& executor;
    UsbPort& usb;
    /// The minor component of the system's version; 0 switches the link off.
    std::function<std::uint64_t()> systemMinorVersion;
    /// How long an arriving pedal may leave the question who it is unanswered before it is reset, since the
    /// main thread waits for the answer; 0: for ever.
    Executor::Duration arrivalPatience{};
};

/// The program's only link to the pedal. There is one shared instance, `looper()`, created on first use.
///
/// Every operation that touches the pedal takes the process-wide device lock; batches run on a background
/// thread and hold it from their first slot to their last. Operations that wait for the pedal are for
/// background threads: the main thread calls only what is marked as such.
class KZQ7306 : public std::enable_shared_from_this<KZQ7306> {
  public:
    using Reply = std::vector<std::uint8_t>;

    enum Operation : std::int32_t { idle = 0, flashing = 1, importingOrErasing = 2, exporting = 3 };

    // --- the class: start-up, hot-plug, polling

    /// Called once, before anything else: takes the environment and initialises USB.
    static void load(DeviceEnvironment environment);
    /// Forgets the shared instance and the environment; for tests, while the link does no work.
    static void unload();

    /// Starts the link with its delegate: hot-plug callbacks, the hot-plug thread and the first poll in 5
    /// seconds. Main thread.
    static void initialize(const std::shared_ptr<KZQ7306Delegate>& delegate);
    /// The shared instance; null before `load`, and if the system's minor version is 0. Any thread.
    static std::shared_ptr<KZQ7306> looper();

    /// A pedal arrived (left): acquires and announces (releases and announces) it. Main thread, device lock
    /// held.
    static void plugged(const UsbDevicePointer& device);
    static void unplugged(const UsbDevicePointer& device);

    /// One poll in the background; a repeating one schedules the next. Any thread.
    static void timer();
    static void timer(bool repeating);
    /// One poll that reports whatever it finds, changed or not, if it came whole. Any thread.
    void refresh();  // NOLINT(readability-convert-member-functions-to-static): asked of a pedal

    // --- acquisition

    /// Opens `device`, or the first pedal on the bus when it is null, and claims its interface.
    bool core(const UsbDevicePointer& device);
    /// Releases the pedal and forgets its cached version.
    void decore();
    /// The open device; null if no pedal is acquired.
    std::shared_ptr<UsbHandle> core() const;

    // --- requests: nothing, or false, without a pedal

    /// Sends a command and returns its reply, zero-filled where the pedal sent nothing: a failed transfer
    /// gives a reply of zeros.
    std::optional<Reply> control(std::uint8_t code, std::uint8_t request, std::uint16_t value,
                                 std::uint16_t index, std::uint16_t length);
    std::optional<Reply> control(std::uint8_t code, std::uint8_t request, std::uint16_t value,
                                 std::uint16_t index);
    std::optional<Reply> control(std::uint8_t code, std::uint16_t value, std::uint16_t index);
    std::optional<Reply> control(std::uint8_t code);
    /// Exactly `length` bytes from the bulk-in pipe.
    std::optional<std::vector<std::uint8_t>> read(std::int32_t length);
    /// All of `bytes` (fewer than 2^31) to the bulk-out pipe.
    bool write(std::span<const std::uint8_t> bytes);
    /// Resets the whole device, whichever endpoint is named.
    void abortBulkTransfer(std::uint8_t endpoint, bool clearPipeStall);

    // --- status

    /// A reply that fails or comes short reads as zeros, which in a table are empty slots; `loops.complete`
    /// then says so, and a full status makes the link forget the one that it reported last.
    std::optional<Status> status(bool full);
    std::uint32_t remaining();
    std::optional<Loops> loops();
    /// The same two in the background; `block` runs there, under the device lock. False if it is missing.
    bool remaining(std::function<void(std::uint32_t)> block);
    bool loops(std::function<void(std::optional<Loops>)> block);
    /// Whether an operation runs or the pedal says that it is busy. If the pedal was asked, `stale` (if
    /// given) is set to whether its sequence byte differs from `autoincrement`.
    bool busy(bool* stale = nullptr);
    /// Another number once there was a reason to doubt that the pedal's loops are still what they were, which
    /// the table need not show: it left, said that it is busy, or its sequence byte moved. Any thread.
    std::uint64_t doubts() const { return doubts_; }

    // Mirrored: these never wait for a transfer. Any thread.
    std::optional<std::string> version() const;
    char stage() const;
    void setStage(char stage);
    bool factoryBlank() const;
    bool disconnected() const;
    std::shared_ptr<KZQ7306Delegate> delegate() const;
    void setDelegate(const std::weak_ptr<KZQ7306Delegate>& delegate);
    std::uint8_t autoincrement() const { return autoincrement_; }
    void setAutoincrement(std::uint8_t value) { autoincrement_ = value; }
    std::int32_t operation() const { return operation_; }
    void setOperation(std::int32_t operation);
    bool cancel() const { return cancel_; }
    void setCancel(bool cancel) { cancel_ = cancel; }
    std::uint64_t macos() const { return macos_; }
    bool isAtLeastSierra() const { return macos_ > 11; }
    bool isAtLeastHighSierra() const { return macos_ > 12; }
    bool isAtLeastMojave() const { return macos_ > 13; }
    bool isAtLeastCatalina() const { return macos_ > 14; }
    /// What has gone wrong in the loop or the step of an update that is under way, so it is read inside its
    /// callback; or why an operation was not accepted. A request that brought no answer is kept here although
    /// the operation goes on.
    std::optional<Trouble> lastTrouble() const;
    /// Why the pedal that arrived last cannot be used; nothing if it can, or has left.
    std::optional<Trouble> acquisitionTrouble() const;

    // --- transfers

    /// Of one loop: the bytes of the piece that has moved. Of a batch: the running total of all its loops,
    /// modulo 2^32. Imports report the slot (1 to 20), exports the slot minus 1 (0 to 19).
    using TransferProgress = std::function<void(std::uint32_t bytes, std::uint8_t slot)>;
    /// What has just arrived of a loop, from its first byte to the end of its padding, before its progress.
    /// It holds only until this returns.
    using AudioPiece = std::function<void(ByteView audio, std::uint8_t slot)>;
    /// The WAV file image of one loop, or nothing.
    using ImportPartialCompletion =
        std::function<void(std::optional<std::vector<std::uint8_t>>, std::uint8_t slot)>;
    /// The bytes of audio sent, 0 on failure, and the slot (1 to 20).
    using ExportPartialCompletion = std::function<void(std::uint32_t bytes, std::uint8_t slot)>;
    /// How many loops succeeded.
    using BatchCompletion = std::function<void(std::uint8_t count)>;
    /// Asked once it is a batch's turn, before its first loop. False: it ends there, without a request.
    using BatchGate = std::function<bool()>;

    // One loop: blocks until done, keeps the reason for a failure in lastTrouble().

    /// A WAV file image.
    std::optional<std::vector<std::uint8_t>> importLoop(std::uint8_t slot, const TransferProgress& progress,
                                                        const AudioPiece& piece = {});
    /// Bytes of audio sent; 0 on failure.
    std::uint32_t exportLoop(const ExportInfo& info, const TransferProgress& progress);
    bool eraseLoop(std::uint8_t slot);

    // Batches: false if busy or if something is missing, and then no callback ever comes. Otherwise they
    // go through their loops in the background, in the order of the list (exports: of the slots). Callbacks
    // run there, with the device lock held; a loop that fails does not stop the batch.

    bool importLoops(std::vector<std::uint8_t> slots, TransferProgress progress,
                     ImportPartialCompletion partialCompletion, BatchCompletion completion,
                     AudioPiece piece = {}, BatchGate gate = {});
    bool exportLoops(Exports exports, TransferProgress progress, ExportPartialCompletion partialCompletion,
                     BatchCompletion completion, BatchGate gate = {});
    bool eraseLoops(std::vector<std::uint8_t> slots, BatchCompletion completion, BatchGate gate = {});
    /// Replaces the pedal's firmware. False if busy or if something is missing, and then `completion` is
    /// never called. Otherwise it is called once, on a background thread under the device lock, with whether
    /// the pedal has the image and its trailer. A pedal in its normal firmware first restarts into its
    /// loader; if it does not come back from there, the update stays pending and `operation` stays at
    /// flashing.
    using FlashCompletion = std::function<void(bool flashed)>;
    bool flashFirmware(std::vector<std::uint8_t> image, FlashCompletion completion);
    /// Its two halves, before and after the restart.
    bool beginFirmwareUpdate();
    bool completeFirmwareUpdate();
    bool flashPending() const;
    /// Bytes of the image of the update that is under way, or was the last; nothing until it is its turn. Any
    /// thread.
    std::optional<std::size_t> imageSent() const;

    /// Asks the running batch to stop before its next piece. Any thread.
    void cancelTransfer() { cancel_ = true; }
    /// Waits until no operation is under way. Not on the main thread.
    void waitUntilIdle();

    // For a SilenceWatch. Any thread.

    /// The number of the USB call that has no answer yet, which counts opening and claiming; 0 for none.
    std::uint64_t callUnderWay() const { return callUnderWay_; }
    /// What its bytes may take: an image is one call.
    Executor::Duration callAllowance() const { return callAllowance_; }
    /// Resets the pedal without waiting for the lock, which ends a hanging transfer: for a pedal that has
    /// stopped answering. Any thread.
    void interrupt() const;

    DeviceLock& lock() const { return *lock_; }

  private:
    KZQ7306(DeviceEnvironment environment, std::shared_ptr<DeviceLock> lock, std::uint64_t macos);

    struct Answer {
        Trouble trouble() const {
            return hostRefusal.value_or(Trouble{reply ? Trouble::Kind::refused : Trouble::Kind::noPedal});
        }

        std::optional<Reply> reply;               ///< nothing without a pedal
        std::optional<Trouble> hostRefusal = {};  ///< if it was not the pedal that refused
        bool whole = false;                       ///< it came, with all that is used of it
        bool accepted = false;                    ///< there is a pedal, and it did not refuse
    };
    Answer ask(const wire::Command& command, std::uint16_t value = 1, std::uint16_t index = 0);
    Answer exchange(const wire::Command& command, std::uint8_t request, std::uint16_t value,
                    std::uint16_t index);
    /// While it lives, a call is under way that moves so many bytes.
    class CallOut : Fixed {
      public:
        CallOut(KZQ7306& link, std::size_t bytes);
        ~CallOut() { link_.callUnderWay_.store(0, std::memory_order_release); }

      private:
        KZQ7306& link_;
    };
    template <class Call>
    auto counted(std::size_t bytes, const Call& call) {
        const CallOut out(*this, bytes);
        return call();
    }

    static void poll(Executor& executor, Executor::TimePoint start, bool repeating);
    std::optional<Status> news(bool onlyChanges);
    void noteUse(const Answer& busy);

    void arrived(const UsbDevicePointer& device);
    std::optional<char> askStage();
    void acquire(const UsbDevicePointer& device, std::shared_ptr<UsbHandle>& handle);
    [[noreturn]] void giveUp(std::string_view tag, Trouble::Kind why);

    /// Keeps the reason; returns false, for `return fail(...)`.
    bool fail(Trouble::Kind why);
    void setTrouble(std::optional<Trouble> trouble);
    void setAcquisitionTrouble(std::optional<Trouble> trouble);
    /// For the methods that answer nothing, false or 0: the value, or the trouble kept.
    template <class T>
    std::optional<T> kept(Result<T> result) {
        if (!result) {
            setTrouble(std::move(result.error()));
            return std::nullopt;
        }
        return std::move(*result);
    }

    Result<Status> query(bool full);
    Result<Status> readStatus(bool full, bool& whole);
    bool readLoops(Loops& loops, bool& whole);
    /// Fills `into`, which is not empty; `due` bytes, these included, are what the pedal has still to send.
    Result<void> receive(UsbHandle& handle, std::span<std::uint8_t> into, std::size_t due);
    /// What has gone out of a write: by the calls that are over, and by the one that is under way.
    struct Gone {
        std::atomic<std::size_t> before = 0;
        std::atomic<std::size_t> now = 0;
    };
    Result<std::size_t> send(ByteView bytes, Gone& gone);
    Result<Bytes> readLoop(SlotNumber slot, const TransferProgress& progress, const AudioPiece& piece);
    Result<Bytes> readAudio(const Loop& loop, SlotNumber slot, const TransferProgress& progress,
                            const AudioPiece& heard);
    Result<std::uint32_t> sendLoop(const ExportInfo& info, const TransferProgress& progress);
    Result<std::uint32_t> sendAudio(const ExportInfo& info, ByteView audio, const TransferProgress& progress);

    /// Whether an operation may start. From then until it begins, no other one may: it too would find the
    /// pedal idle.
    bool claim(bool complete);
    bool startBatch(bool complete, std::function<void(KZQ7306&)> batch);
    std::unique_lock<DeviceLock> beginOperation(Operation operation);
    void transferBatch(Operation operation, std::uint8_t endpoint, std::vector<std::uint8_t> slots,
                       const std::function<bool(std::uint8_t slot)>& transfer,
                       const BatchCompletion& completion, const BatchGate& gate);
    void eraseBatch(std::vector<std::uint8_t> slots, const BatchCompletion& completion,
                    const BatchGate& gate);
    /// An update that survives the pedal's restart into its loader.
    struct Flash {
        std::vector<std::uint8_t> firmware;
        FlashCompletion completion;
    };
    void setFlash(std::optional<Flash> flash);
    std::optional<Flash> takeFlash();
    FlashCompletion flashCompletion() const;
    bool sendFirmware(const std::vector<std::uint8_t>& image);
    bool endFirmwareUpdate(const FlashCompletion& completion, bool flashed);

    /// Sums up what the loops of a batch report, until it is cancelled.
    TransferProgress runningTotal(TransferProgress progress);
    void abandonTransfer(std::uint8_t endpoint);

    DeviceEnvironment environment_;
    std::shared_ptr<DeviceLock> lock_;
    std::uint64_t macos_ = 0;

    std::atomic<std::uint8_t> autoincrement_ = 0;
    std::optional<std::uint8_t> lastSequence_;  ///< of the pedal that is there; under the lock
    std::atomic<std::uint64_t> doubts_ = 0;
    std::atomic<bool> cancel_ = false;
    std::atomic<std::int32_t> operation_ = idle;
    std::atomic<bool> imageDue_ = false;
    Gone imageGone_;
    std::atomic<bool> starting_ = false;  ///< an operation was accepted and has not begun
    std::atomic<std::uint64_t> callUnderWay_ = 0;
    std::uint64_t calls_ = 0;  ///< so far; under the lock
    std::atomic<Executor::Duration> callAllowance_{};

    /// Guards the members below; held only briefly, never during USB traffic or a callback.
    mutable std::mutex mirror_;
    Condition operationChanged_;
    std::weak_ptr<KZQ7306Delegate> delegate_;
    char stage_ = 0;                      ///< 0 no pedal, 'p' normal firmware, 'b' only its loader
    std::optional<std::string> version_;  ///< as last read
    std::optional<Status> lastStatus_;    ///< the last that a poll reported, unless one since was not whole
    std::optional<Flash> flash_;
    std::optional<Trouble> trouble_;
    std::optional<Trouble> acquisitionTrouble_;
    std::shared_ptr<UsbHandle> core_;
};

}  // namespace kzq
