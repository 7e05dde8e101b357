#pragma once

#include <QPointer>
#include <QWidget>

class QDropEvent;

namespace kzq {

class Slot;

/// The root of a row. Handles dragging for the whole row; the row's other views pass their dragging on to it,
/// so that a file may be dropped anywhere on the row.
class SlotView : public QWidget {
    Q_OBJECT

  public:
    explicit SlotView(QWidget* parent = nullptr);

    Slot* controller() const;
    void setController(Slot* controller);

    /// What would become of this drag here: a copy, for an export row and a first file whose extension is one
    /// of the eight kinds of audio; else Qt::IgnoreAction. Never a move: the user's file stays.
    Qt::DropAction draggingEntered(const QDropEvent& drag) const;
    void draggingExited();
    bool prepareForDragOperation() const;
    /// Hands the files to the row's delegate. False when the row takes none, the drag holds none, or it comes
    /// from this row.
    bool performDragOperation(const QDropEvent& drop);

    /// The same for the toolkit's events, of this view or another one of the row.
    void dragOver(QDropEvent& event);
    void drop(QDropEvent& event);

    /// An accepted drag hovers over the row.
    bool dropHovering() const { return dropHovering_; }

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void setDropHovering(bool hovering);

    QPointer<Slot> controller_;
    bool dropHovering_ = false;
};

}  // namespace kzq
