#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "loops/frames.h"
#include "loops/slot_number.h"
#include "operations/generations.h"
#include "platform/result.h"

namespace kzq {

/// A loop as it was before the window went to erase or replace it.
struct KeptCopy {
    /// What became of it on the pedal, as far as that was seen; `copied`: it may still be there.
    enum class Fate : std::uint8_t { copied, erased, replaced };

    std::filesystem::path file;  ///< of the form an import writes
    SlotNumber slot;             ///< where it was
    Frames length;
    std::string stamp;  ///< when it was kept: see Stamp
    Fate fate = Fate::copied;
};

/// The copies of loops that the window keeps before it erases or replaces them: a folder of dated backups, of
/// just these loops; doc/kept.md describes it. The folder's name is the setting. Several programs may use it
/// at once. Blocks; any thread.
class KeptCopies {
  public:
    static constexpr std::uint64_t usualRoom = 2'000'000'000;

    /// In `parent`; an empty path: there is no place, and nothing is kept. Above `room` bytes the oldest
    /// go.
    explicit KeptCopies(std::filesystem::path parent, std::uint64_t room = usualRoom)
        : parent_(std::move(parent)), room_(room) {}

    /// Whether copies are kept: unless the user has turned it off.
    bool on() const;
    /// Renames the folder, and removes nothing. Errors: folder.
    Result<void> turn(bool on) const;

    /// The newest first, also while it is off. A loop that stayed on the pedal is left out if the same audio
    /// of that slot was kept again later.
    std::vector<KeptCopy> list() const;
    /// These loops of what was kept at `stamp` were seen to be gone: until then, and if this fails, their
    /// copies only say that they were made.
    void noteGone(const std::string& stamp, const std::vector<SlotNumber>& slots) const;
    /// What they take of the disk.
    std::uint64_t size() const;

    /// Where the next ones go. Errors: folder.
    Result<Generations> open() const;
    /// Removes what interrupted runs left, and the oldest copies if there are too many; never the newest.
    /// Only what the program itself has written there.
    void tidy() const;

  private:
    std::filesystem::path folder() const;

    std::filesystem::path parent_;
    std::uint64_t room_;
};

}  // namespace kzq
