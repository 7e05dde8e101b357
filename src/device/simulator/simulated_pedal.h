#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "device/simulator/fault_plan.h"
#include "device/simulator/pedal_memory.h"
#include "device/simulator/wire_journal.h"
#include "platform/executor.h"

namespace kzq::simulator {

/// The setup packet of a control request.
struct SetupPacket {
    std::uint8_t requestType = 0;
    std::uint8_t request = 0;
    std::uint16_t value = 0;
    std::uint16_t index = 0;
    std::uint16_t length = 0;
};

/// How a transfer ended. A pending one has no answer yet: the transport asks again after every change on the bus
/// (SimulatedPedal::Listener) and meanwhile keeps its caller waiting; after a reset or a departure it ends it.
enum class TransferStatus { done, stalled, pending, gone, overrun };

struct TransferResult {
    TransferStatus status = TransferStatus::done;
    std::size_t transferred = 0;
};

/// What the transports hear of. Called without the pedal's own mutex, on the thread that caused it.
enum class BusChange { arrived, left, reset };

/// A model of the pedal's side of the wire: commands, loop table, audio streams, loader and re-enumeration. It answers
/// as the pedal does, remembers every transfer in its journal, and records a violation for everything a
/// correct program never sends. Transports (in-process, USB/IP, an emulated kernel device) put it on a bus.
///
/// Thread-safe: one mutex guards it all.
class SimulatedPedal {
  public:
    using Listener = std::function<void(BusChange)>;

    /// What the pedal is before anything happens to it.
    struct Start {
        PedalMemory memory;
        std::string version = "1.05";  ///< 4 ASCII characters
        char stage = 'p';
    };

    SimulatedPedal(Executor& executor, Start start);

    // --- the wire ---------------------------------------------------------------------------------------------

    /// `reply` has wLength bytes.
    TransferResult control(const SetupPacket& setup, std::span<std::uint8_t> reply);
    TransferResult bulkIn(std::span<std::uint8_t> into);
    TransferResult bulkOut(std::span<const std::uint8_t> from);
    void reset();

    // --- the cable --------------------------------------------------------------------------------------------

    bool isPlugged() const;
    /// Puts the pedal on the bus, or takes it off; nothing happens when it is already so.
    void plugIn();
    void unplug();
    /// One transport listens; it replaces an earlier one.
    void setListener(Listener listener);

    // --- what a test or a person does to the pedal -------------------------------------------------------------

    PedalMemory memory() const;
    void setLoop(std::uint8_t address, std::optional<StoredLoop> loop);
    void setMemoryListener(MemoryListener listener);
    void setVersion(const std::string& version);
    void setStage(char stage);
    /// The pedal is being played: it answers 0xE8 with 'N'.
    void setBusy(bool busy);
    void setSequence(std::uint8_t sequence);
    void plan(const Fault& fault);
    void clearFaults();
    /// Whether the pedal comes back after it left for its loader or after a firmware update.
    void setReturns(bool returns);

    // --- what happened ----------------------------------------------------------------------------------------

    std::vector<WireEvent> journal() const;
    void clearJournal();
    /// A sentence for each thing that a correct program never sends.
    std::vector<std::string> violations() const;
    /// The last image whose length and SHA-256 matched its trailer.
    std::optional<Bytes> installedFirmware() const;
};

}  // namespace kzq::simulator
