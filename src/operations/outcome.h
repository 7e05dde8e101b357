#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "loops/frames.h"
#include "loops/slot_number.h"
#include "platform/bytes.h"
#include "platform/trouble.h"

namespace kzq {

/// What became of one loop.
struct SlotOutcome {
    /// How far it came.
    enum class Did : std::uint8_t {
        failed,
        saved,
        sent,      ///< the pedal took it, and was not asked what it holds
        written,   ///< sent, and in the pedal's table with its length
        compared,  ///< sent, read back, and the same
        erased,
        kept,       ///< what an earlier run saved is still the same
        unchanged,  ///< compared only
        sameLength  ///< the same, and only that
    };

    SlotNumber slot;
    Did did = Did::failed;
    std::optional<Trouble> trouble = {};  ///< what is wrong: also with a loop that was sent
    std::filesystem::path file = {};      ///< where it was saved; its folder, if it could not be
    Frames frames = {};                   ///< its length
    std::string digest = {};              ///< of its audio, if that is wanted: audioDigest
};

struct Events;

/// What became of a whole operation.
struct Outcome {
    std::size_t wanted = 0;
    std::vector<SlotOutcome> slots = {};    ///< in the order in which they were done
    std::optional<Trouble> end = {};        ///< what ended it before its last loop
    std::optional<SlotOutcome> doubt = {};  ///< was under way then: failed: the slot may be empty now;
                                            ///< sent: the pedal was not asked any more what it holds
    std::size_t unseen = 0;  ///< loops that the pedal agreed to erase, before it was asked what it holds
    bool begun = false;      ///< the link took a batch, so that the pedal may have done something

    /// Nothing more happens to `loop`, which is reported.
    void add(const Events& events, SlotOutcome loop);
    /// How many loops came to a good end.
    std::size_t done() const;
    bool whole() const { return !end && done() == wanted; }
    /// Null if no loop failed.
    const SlotOutcome* firstFailure() const;
    /// Whether what ended it is what the last loop failed with.
    bool endIsTold() const { return end && !slots.empty() && slots.back().trouble == end; }
};

/// How the loops are handed to the link.
enum class Batches : std::uint8_t {
    one,  ///< all at once, in ascending order for an export: nothing is asked in between
    each  ///< a batch for each: something that comes up in between ends the operation without the reset
          ///< that a cancel brings
};

/// What a loop goes through.
enum class Step : std::uint8_t { read, write, compare };

/// What an operation reports. All on a thread of the pool, with `Batches::one` on the link's, under the
/// device lock; any of them may be missing.
struct Events {
    /// A loop comes next; only with `Batches::each`.
    std::function<void(SlotNumber, Step)> begins = {};
    /// `bytes` of this batch have moved: of all its loops together.
    std::function<void(SlotNumber, std::uint64_t bytes)> moved = {};
    /// Audio of the loop that is being read, its padding included: as Pedal::Arrived. Not of an import.
    std::function<void(SlotNumber, ByteView audio)> arrived = {};
    /// Nothing more happens to this loop.
    std::function<void(const SlotOutcome&)> slot = {};
};

template <class... Values>
void tell(const std::function<void(Values...)>& event, const std::type_identity_t<Values>&... values) {
    if (event) {
        event(values...);
    }
}

}  // namespace kzq
