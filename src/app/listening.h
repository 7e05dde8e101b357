#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "listening/audio_output.h"
#include "loops/slot_number.h"
#include "platform/fixed.h"
#include "platform/result.h"
#include "words/words.h"

namespace kzq {

class Slot;
struct AppParts;

/// What the rings say where nothing can be heard; empty where it can, as far as is known. Null: there is no
/// device.
inline std::string troubleOf(const AudioOutput* output) {
    const auto trouble = output != nullptr ? output->trouble() : english("No sound device was found.");
    return trouble.empty() ? trouble : words(trouble.c_str());
}

/// Hears loops and staged files, and reads loops for it. Main thread.
class Listening : Fixed {
  public:
    /// `parts` outlives it.
    explicit Listening(AppParts& parts);
    ~Listening();

    /// The ring of this row was pressed: plays, gives up or stops, as the row shows.
    void clicked(Slot& row);
    /// Changes between a staged file and the loop that it would replace, while one of both plays.
    void compare(Slot& row);
    /// The sound; a read goes on to its end.
    void stop();
    bool playing() const;

    /// A copy of a loop, or why there is none.
    using Copy = std::function<void(SlotNumber, Result<std::filesystem::path>)>;
    /// Copies of these loops as WAV files (of the form an import writes) in this run's folder, read one after
    /// the other where they are not there yet, or no longer count as the pedal's. `copy` is called for each,
    /// in order, some of them before this returns; `moved` with 0 to 1 of all. An operation that is started
    /// meanwhile ends it: the rest come as Trouble cancelled. A fetch that is under way ends like that.
    void fetch(std::vector<SlotNumber> slots, Copy copy, std::function<void(double)> moved);
    /// Ends what fetch has under way: the rest come as Trouble cancelled.
    void giveUp();
    /// The copy, if there is one that counts as the pedal's. It stays until the program ends, or until the
    /// loop has been read again.
    std::optional<std::filesystem::path> copyOf(SlotNumber slot) const;
    /// We wrote to it.
    void forget(SlotNumber slot);

    /// The window is covered: nothing is heard, as nobody could stop it, and what waits for the pedal is
    /// given up.
    void covered();
    /// An operation waits for the end of the read that it has stopped, or no longer.
    void setAwaited(bool awaited);
    bool isAwaited() const;
    /// No operation lasts any more.
    void readNext();
    /// The table, what is staged or the pedal has changed: the rows follow.
    void rowsChanged();

  private:
    struct Engine;
    const std::shared_ptr<Engine> engine_;
};

}  // namespace kzq
