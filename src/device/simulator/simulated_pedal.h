#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "device/simulator/fault_plan.h"
#include "device/simulator/firmware_loader.h"
#include "device/simulator/pedal_memory.h"
#include "device/simulator/wire_journal.h"
#include "device/wire.h"
#include "loops/facts.h"
#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq::simulator {

/// The setup packet of a control request.
struct SetupPacket {
    std::uint8_t requestType = 0;
    std::uint8_t request = 0;
    std::uint16_t value = 0;
    std::uint16_t index = 0;
    std::uint16_t length = 0;
};

/// How a transfer ended. A pending one has no answer yet: the transport asks again after every change on the
/// bus (SimulatedPedal::Listener) and keeps its caller waiting; after a reset or a departure it ends the
/// transfer.
enum class TransferStatus { done, stalled, pending, gone, overrun };

struct TransferResult {
    TransferStatus status = TransferStatus::done;
    std::size_t transferred = 0;
};

/// Changes reported to the transports. Called without the pedal's own mutex, on the thread that caused it.
enum class BusChange { arrived, left, reset };

/// A model of the pedal's side of the wire: commands, loop table, audio streams, loader and re-enumeration.
/// It answers as the pedal does, remembers every transfer in its journal, and records a violation for
/// everything a correct program never sends. Transports (in-process, USB/IP, an emulated kernel device) put
/// it on a bus.
///
/// A new pedal is off the bus until `plugIn`. What it does where the wire protocol leaves it open:
/// - An announced overwrite frees the old loop when the first byte of the new one arrives, and the new loop
///   appears when its last byte has arrived: an interruption in between leaves the slot empty. A loop
///   received over the wire has tempo 120 and channel 1; an incomplete frame at its end is dropped.
/// - A new 0xE1, 0xE2, 0xED or 0xEF drops an unfinished stream, as does a reset.
/// - 0xE4 makes the normal firmware leave the bus 100 ms after the reply and return as the loader 1.5 s
///   later. It stays the loader, plugged in or not, until an image is installed. In the loader all slots are
///   empty.
/// - If the pedal has nothing to send, a bulk read pends; if nothing was announced, a bulk write stalls.
///
/// Thread-safe: one mutex guards it all. It must outlive its transports, but not the tasks it has queued.
class SimulatedPedal : Fixed {
  public:
    using Listener = std::function<void(BusChange)>;

    /// The pedal's initial state.
    struct Start {
        PedalMemory memory;
        std::string version = "1.05";  ///< 4 ASCII characters
        char stage = 'p';
    };

    SimulatedPedal(Executor& executor, Start start);
    ~SimulatedPedal();

    // --- the wire

    /// `reply` has wLength bytes. For a pending transfer call again with the same arguments: that counts as
    /// the same transfer, in the journal and for planned faults.
    TransferResult control(const SetupPacket& setup, std::span<std::uint8_t> reply);
    TransferResult bulkIn(std::span<std::uint8_t> into);
    TransferResult bulkOut(std::span<const std::uint8_t> from);
    /// Ends all running and pending transfers. Memory, address and connection stay.
    void reset();
    /// The host has reported a failure that the pedal cannot see: whatever follows, no loop or image under
    /// way has to be completed.
    void excuseStream();

    /// How many bytes bulk reads would bring now; for transports that send ahead of the read.
    std::size_t bytesToSend() const;
    /// Whether audio is announced and has not all come; for transports that hand it on later than they say.
    bool awaitsAudio() const;

    // --- the cable

    bool isPlugged() const;
    /// Puts the pedal on the bus, or takes it off; no effect if it already is, except that unplugging a pedal
    /// that is restarting keeps it from returning by itself.
    void plugIn();
    void unplug();
    /// One transport listens; it replaces an earlier one.
    void setListener(Listener listener);

    // --- what a test or a person does to the pedal

    PedalMemory memory() const;
    void setLoop(std::uint8_t address, std::optional<StoredLoop> loop);
    void setMemoryListener(MemoryListener listener);
    void setVersion(const std::string& version);
    /// What an image that does not name its version installs as; empty: the version stays.
    void setNextVersion(const std::string& version);
    void setStage(char stage);
    /// The pedal is being played: it answers 0xE8 with 'N'.
    void setBusy(bool busy);
    void setSequence(std::uint8_t sequence);
    void plan(const Fault& fault);
    void clearFaults();
    /// Whether the pedal comes back after it left for its loader or after a firmware update; evaluated when
    /// it would return.
    void setReturns(bool returns);

    // --- what happened

    std::vector<WireEvent> journal() const;
    void clearJournal();
    /// A sentence for each thing received that a correct program never sends.
    std::vector<std::string> violations() const;
    /// The last image whose length and SHA-256 matched its trailer.
    std::optional<Bytes> installedFirmware() const;

  private:
    using LoopPointer = std::shared_ptr<const StoredLoop>;
    using Lock = std::unique_lock<std::mutex>;

    /// Reported to listeners once the mutex is free.
    struct News {
        std::optional<BusChange> bus;  ///< otherwise a loop changed:
        std::uint8_t address = 0;
        LoopPointer loop;
    };
    struct ReplyBody {
        std::array<std::uint8_t, wire::tableLength> bytes{};
        std::size_t length = replyLength;
    };
    /// Audio being sent to the computer.
    struct ImportStream {
        LoopPointer loop;
        std::size_t sent = 0;
        std::size_t total = 0;  ///< with the padding
    };
    /// Audio being received from the computer.
    struct ExportStream {
        std::uint8_t address = 0;
        std::optional<std::size_t> total;  ///< once 0xE3 has announced it
        Bytes audio;
    };
    struct Life;
    using Transfer = std::function<TransferResult(std::optional<FaultKind>)>;

    // All of these are called with the mutex held.

    TransferResult carryOut(Lock& lock, const WireEvent& event, bool fresh, const Transfer& transfer);
    TransferResult suffer(FaultKind fault, WireEvent::Kind kind);
    void announceNews(Lock& lock);

    void inspect(const SetupPacket& setup);
    void inspectMoment(std::uint8_t code, const std::string& name);
    void inspectParameters(const SetupPacket& setup, const wire::Command& command);
    TransferResult command(const SetupPacket& setup, std::span<std::uint8_t> reply,
                           std::optional<FaultKind> fault);
    std::optional<ReplyBody> execute(const SetupPacket& setup);
    static ReplyBody answer(bool accepted);
    ReplyBody stateReply(bool accepted) const;
    ReplyBody capacityReply() const;
    ReplyBody loopTable(std::size_t first);
    bool enterLoader();
    bool eraseLoop(std::size_t address);

    bool startImport(std::size_t address, unsigned channel);
    bool announceExport(std::size_t address);
    bool announceLength(std::size_t bytes);
    TransferResult sendAudio(std::span<std::uint8_t> into);
    TransferResult receive(std::span<const std::uint8_t> from, std::optional<FaultKind> fault);
    std::size_t receiveAudio(std::span<const std::uint8_t> from);
    bool expectsAudio() const { return export_ && export_->total; }
    void inspectPiece(std::size_t bytes, std::size_t due);
    void storeExport();
    void dropStreams();
    void changeLoop(std::size_t address, LoopPointer loop);
    std::uint64_t usedFrames() const;

    bool inLoader() const { return stage_ == stageFactoryBlank; }
    void finishUpdate();
    void restartInto(char stage);
    void later(Executor::Duration delay, void (SimulatedPedal::*step)());
    void enterBus();
    void leaveBus();
    void leaveToRestart();
    void comeBack();

    Executor& executor_;
    mutable std::mutex mutex_;
    std::shared_ptr<Life> life_;
    Listener listener_;
    MemoryListener memoryListener_;
    std::vector<News> news_;

    WireJournal journal_;
    FaultPlan faults_;
    FirmwareLoader loader_{journal_};

    std::array<LoopPointer, loopSlots> loops_;  ///< by address; null: empty
    std::array<LoopPointer, loopSlots> told_;   ///< the same when it was asked for its table
    std::string version_;
    std::string nextVersion_;
    char stage_;
    std::optional<char> nextStage_;  ///< while the pedal restarts: its stage after it has left the bus
    bool busy_ = false;
    std::uint8_t sequence_ = 0;
    bool returns_ = true;

    bool onBus_ = false;
    std::uint64_t plugs_ =
        0;  ///< grows with every change of the cable, so that an overtaken restart is noticed
    bool silent_ = false;
    bool silentCommand_ = false;                 ///< it began with a request that was swallowed
    std::optional<Executor::TimePoint> erased_;  ///< when the last erase was accepted
    std::optional<ImportStream> import_;
    std::optional<ExportStream> export_;
    bool streamExcused_ = false;  ///< the loop or image under way need not be completed
};

}  // namespace kzq::simulator
