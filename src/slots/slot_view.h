#pragma once

#include <QList>
#include <QPointer>
#include <QUrl>
#include <QWidget>

class QDropEvent;

namespace kzq {

class Slot;

/// The root of a row. Handles drag and drop for the whole row; the row's other views pass their drag events
/// on to it, so that a file may be dropped anywhere on the row.
class SlotView : public QWidget {
    Q_OBJECT

  public:
    explicit SlotView(QWidget* parent = nullptr);
    ~SlotView() override;

    Slot* controller() const;
    void setController(Slot* controller);

    /// The action for this drag: a copy, for an export row and a first file with one of the eight audio
    /// extensions; else Qt::IgnoreAction. Never a move: the user's file stays.
    Qt::DropAction draggingEntered(const QDropEvent& drag) const;
    void draggingExited();
    bool prepareForDragOperation() const;
    /// Passes the files to the row's delegate. False if the row accepts none, the drag has none, or it comes
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
    void reportHeld(const QList<QUrl>& urls);

    QPointer<Slot> controller_;
    bool dropHovering_ = false;
};

}  // namespace kzq
