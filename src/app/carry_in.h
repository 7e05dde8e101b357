#pragma once

#include <QList>
#include <QObject>
#include <QUrl>
#include <cstdint>
#include <memory>
#include <optional>

#include "loops/slot_number.h"
#include "platform/executor.h"

class QDropEvent;

namespace kzq {

struct AppParts;
struct HeldFiles;
class Slot;

/// Files on their way into the window that are not meant for one row: dropped on the tray between the rows,
/// on the export tab, or pasted. While files are held over the window, the rows show what would become of
/// them and the status line says it; their lengths come from a quick look, which waits for nobody. A drag
/// that rests on the export tab opens it. What is held over a row is only shown: the drop is the row's. Main
/// thread.
class CarryIn : public QObject {
    Q_OBJECT

  public:
    /// How long a drag rests on the export tab before that opens.
    static constexpr Executor::Duration rest = std::chrono::milliseconds(600);
    /// How long dropped files wait for a look at them that does not end.
    static constexpr Executor::Duration patience = std::chrono::seconds(3);

    /// `parts` outlives it.
    explicit CarryIn(AppParts& parts) : parts_(parts) {}

    /// Takes drags over the tray and the export tab from now on.
    void watch();
    /// The row's own: files that it would take are held over it; none: no longer.
    void heldOver(Slot& row, const QList<QUrl>& files);
    /// From the clipboard.
    void paste();
    /// The table or what is staged has changed: another picture of what is held.
    void refresh();
    /// The export tab, unless an operation covers the window; after the answer to a question that is open.
    void openTab();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Over : std::uint8_t { tray, tab, row };
    struct Hold {
        Over over;
        std::optional<SlotNumber> row;
        QList<QUrl> files;

        bool operator==(const Hold&) const = default;
    };
    bool takes(const QObject& watched, const QDropEvent& drag) const;
    void hold(const Hold& hold);
    void letGo();
    std::shared_ptr<HeldFiles> look(const QList<QUrl>& files);
    void looked(const std::shared_ptr<HeldFiles>& looks);
    void drop(const QList<QUrl>& files, bool pasted);
    void place(HeldFiles& looks);
    void showRow(SlotNumber slot, const HeldFiles& looks);
    void showPlan(const HeldFiles& looks);
    void clear();

    AppParts& parts_;
    std::optional<Hold> held_;
    std::shared_ptr<HeldFiles> looks_;  ///< at what is held, or was until a moment ago
    Executor::TimePoint letGoSince_{};  ///< if nothing is held
    std::uint64_t rests_ = 0;           ///< counts what the drag has been over
    const std::shared_ptr<int> life_ = std::make_shared<int>();
};

}  // namespace kzq
