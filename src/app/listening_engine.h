#pragma once

#include <compare>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "app/listening.h"
#include "app/loop_fetch.h"
#include "app/loop_reader.h"
#include "app/teller.h"
#include "listening/player.h"
#include "listening/shelf.h"
#include "slots/row_sound.h"

namespace kzq {

/// What Listening does. It is a class of its own so that what comes later can hold it weakly.
struct Listening::Engine : std::enable_shared_from_this<Engine>, Fixed {
    explicit Engine(AppParts& theParts);
    ~Engine();
    /// Called once it is held.
    void listen();

    struct RowName {
        std::int32_t context = 0;
        SlotNumber slot;

        bool operator==(const RowName&) const = default;
    };
    static RowName nameOf(const Slot& row);

    // --- pressed

    void clicked(const RowName& row);
    void compare(const RowName& row);
    /// The sound, and what waits for its loop to be heard.
    void stop();

    // --- what happens meanwhile

    void rowsChanged();
    void setAwaited(bool on);
    void ended(SlotNumber slot, Result<LoopReader::Read> read);
    void tellMissed(SlotNumber slot, const Trouble& trouble, bool read) const;
    void fetchNext();
    void endFetch(const Trouble& why);
    /// Follows what is played and read, until nothing is.
    void follow();

    // --- what the rows show, in listening_rows.cpp

    RowSound soundOf(const RowName& row) const;
    void show(const RowName& row) const;
    void showSlot(SlotNumber slot) const;
    void showAll() const;
    std::shared_ptr<const Peaks> peaksOfLoop(SlotNumber slot) const;
    std::shared_ptr<const Peaks> peaksOfFile(SlotNumber slot) const;

    /// What a row has to be heard.
    struct Choice {
        RowName row;
        bool loop = false;                  ///< the pedal's, and not a staged file
        Loop table = {};                    ///< of a loop: as the table had it
        std::filesystem::path source = {};  ///< of a file
    };
    struct Now {
        Choice choice;
        Teller::Work work = 0;
    };
    struct File {
        std::filesystem::path source;
        std::shared_ptr<Sound> sound = {};  ///< null until it was looked at, and if it cannot be played
    };

    bool isStaged(const RowName& row) const;
    /// A file is staged, and would replace a loop.
    bool wouldReplace(const RowName& row) const;
    /// Nothing if the row has no such thing.
    std::optional<Choice> choose(const RowName& row, bool loop) const;
    /// Whether it is still what the row has.
    bool stands(const Choice& choice) const;
    /// What there is of it to be heard; null: not yet.
    std::shared_ptr<Sound> audible(const Choice& choice) const;
    /// Whether the pedal's loop in this slot is heard, or will be as soon as it can.
    bool isForListening(SlotNumber slot) const;
    bool canBeHeard() const;
    bool isNow(const RowName& row) const { return now && now->choice.row == row; }
    bool isWanted(const RowName& row) const { return wanted && wanted->row == row; }
    void want(const std::optional<Choice>& choice);
    void dropWanted();
    /// What is wanted is heard, if it is there.
    void serve();
    void begin(const Choice& choice, std::shared_ptr<Sound> sound);
    void sayPlaying(Frames length) const;
    void stopSound();
    void followFiles();
    void look(SlotNumber slot, const std::filesystem::path& source);
    void tick();

    AppParts& parts;
    const std::function<Doubt()> doubt;
    Shelf shelf{doubt};
    std::shared_ptr<LoopReader> reader;
    std::unique_ptr<Player> player;  ///< null without an output
    std::optional<Now> now;
    std::optional<Choice> wanted;      ///< heard as soon as there is something to hear
    std::map<SlotNumber, File> files;  ///< that are staged
    std::shared_ptr<LoopFetch> fetch;
    unsigned pedal = 0;        ///< see LoopModel
    Teller::Work awaited = 0;  ///< that an operation waits for the end of a read; 0: none does
    bool ticking = false;
};

}  // namespace kzq
