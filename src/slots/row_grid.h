#pragma once

#include <QObject>
#include <QPointer>
#include <cstddef>
#include <optional>
#include <set>
#include <vector>

#include "slots/row_walk.h"

class QKeyEvent;
class QWidget;

namespace kzq {

class Slot;

/// One list of rows under the keyboard. Main thread.
///
/// - Up, Down, Home, End, Page Up and Page Down go from row to row (see RowStep), to the same part of it.
/// - Left and Right go through the parts of a row (ring, button, name or x, A/B), then on to the nearest row
/// of
///   the other column.
/// - With Shift they pick up the loops of an import list, from the row where that began, and put back those
///   that they picked up themselves and that are not between any more; not one whose name was typed.
/// - Tab stops once: at the row that was used last.
///
/// While a name is edited, all keys are the editor's.
class RowGrid : public QObject {
    Q_OBJECT

  public:
    using Rows = std::vector<Slot*>;

    /// `rows` by their numbers; they outlive it. Set the order of Tab before.
    explicit RowGrid(Rows rows);

    /// The row with the focus, if it shows; also while a menu has taken the keys. Null for none.
    Slot* focused() const;
    /// Shift picks loops up, and the focus goes where the keys say.
    bool picking() const { return picking_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Slot* rowOf(const QObject* part) const;
    std::size_t indexOf(const Slot& row) const;
    UsableRows usable() const;
    const Slot* rowBehind(RowStep step, const Slot& from) const;
    QWidget* stop() const;
    void settle();
    void used(QWidget& part);
    void endRange();
    void moveTo(QWidget* part);
    bool pressed(Slot& row, QWidget& at, const QKeyEvent& event);
    bool walked(const Slot& row, QWidget& at, int key, bool picks);
    QWidget* beside(const Slot& row, const QWidget& at, bool right) const;
    const Slot* otherColumn(const Slot& row, bool right) const;
    void pickTo(const Slot& row);
    void pick(std::size_t index, bool within);

    const Rows rows_;
    QPointer<QWidget> last_;  ///< button, name or x of the row that was used last
    QPointer<Slot> left_;     ///< had the focus when a menu took the keys
    std::optional<std::size_t> anchor_;
    std::set<std::size_t> picked_;  ///< since the anchor
    bool moving_ = false;
    bool picking_ = false;
};

}  // namespace kzq
