#pragma once

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QPointer>
#include <QUrl>
#include <QWidget>

namespace kzq {

class Slot;

/// Lets the row's root view handle a drag event that arrived at another view of the row. Without a row the
/// event is ignored.
void forwardDragEnter(Slot* row, QDropEvent& event);
void forwardDragLeave(Slot* row);
void forwardDrop(Slot* row, QDropEvent& event);
Slot* slotOf(QObject* controller);
/// Whether a row takes it: a file on this computer with one of the eight endings.
bool isAudioFile(const QUrl& url);

/// A view of a row: knows the row's controller, and passes drag events on to the row's root view.
template <class Base>
class SlotDropTarget : public Base {
  public:
    explicit SlotDropTarget(QWidget* parent) : Base(parent) {}

    Slot* controller() const { return slotOf(controller_); }
    void setController(QObject* controller) { controller_ = controller; }

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override { forwardDragEnter(controller(), *event); }
    void dragMoveEvent(QDragMoveEvent* event) override { forwardDragEnter(controller(), *event); }
    void dragLeaveEvent(QDragLeaveEvent* event) override {
        forwardDragLeave(controller());
        event->accept();
    }
    void dropEvent(QDropEvent* event) override { forwardDrop(controller(), *event); }

  private:
    QPointer<QObject> controller_;  // a Slot
};

}  // namespace kzq
