#pragma once

#include <QObject>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

#include "loops/facts.h"
#include "loops/slot_number.h"
#include "platform/result.h"

namespace kzq {

struct AppParts;
class Slot;

/// Loops on their way out of the window, into a file manager or another program. While a row is dragged its
/// loop is read, if it has not been, and hangs under the pointer; once the files are whole and the button is
/// still down, the toolkit's drag begins. If the button goes up before, nothing is dropped. Main thread.
class CarryOut : public QObject {
    Q_OBJECT

  public:
    /// Where the loops come from: see Listening.
    struct Source {
        using Copy = std::function<void(SlotNumber, Result<std::filesystem::path>)>;
        std::function<void(std::vector<SlotNumber> slots, Copy copy, std::function<void(double)> moved)>
            fetch;
        std::function<void()> giveUp;
        /// Whether this copy still counts as the pedal's: reading the others may have taken minutes.
        std::function<bool(SlotNumber slot, const std::filesystem::path& copy)> counts;
    };

    /// What was taken stays while the program runs, as whoever has it may read it later; above so many bytes,
    /// which is the audio of two full pedals, the oldest goes.
    static constexpr std::uint64_t usualRoom = 2 * capacityFrames * frameBytes;

    /// `parts` outlives it.
    explicit CarryOut(AppParts& parts) : parts_(parts) {}
    ~CarryOut() override;

    /// Without one, rows cannot be dragged.
    void setSource(Source source) { source_ = std::move(source); }
    void setRoom(std::uint64_t bytes) { room_ = bytes; }
    /// The pointer has begun to drag this row, and with it all that are picked up if it is one of them.
    void begin(const Slot& row);
    /// Nothing is dropped.
    void giveUp();
    bool underWay() const { return load_ != nullptr; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Load;
    /// What another program has taken.
    struct Taken {
        std::filesystem::path folder;
        std::uint64_t bytes;
    };

    std::shared_ptr<Load> pickUp(const Slot& row) const;
    void arrived(const std::shared_ptr<Load>& load, SlotNumber slot, Result<std::filesystem::path> copy);
    void nameFiles(const std::shared_ptr<Load>& load);
    void named(const std::shared_ptr<Load>& load, const Result<std::vector<std::filesystem::path>>& files);
    void drag(const Load& load, const std::vector<std::filesystem::path>& files);
    void keep(const Taken& taken);
    void fail(const Load& load, const Trouble& trouble);
    void end();

    AppParts& parts_;
    Source source_;
    std::shared_ptr<Load> load_;  ///< while it waits for its files
    std::deque<Taken> taken_;     ///< the oldest first
    std::uint64_t room_ = usualRoom;
    const std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace kzq
