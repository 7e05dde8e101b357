#include "slots/row_drag.h"

#include <QLineF>
#include <QMouseEvent>
#include <optional>

#include "slots/slot.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr double farEnough = 8;

class RowDrag : public QObject {
  public:
    explicit RowDrag(Slot& row) : QObject(&row), row_(row) {
        for (QWidget* const part :
             std::initializer_list<QWidget*>{row.view(), row.field(), row.button(), row.background()}) {
            part->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
                press(static_cast<const QMouseEvent&>(*event));
                return false;
            case QEvent::MouseMove:
                return move(static_cast<const QMouseEvent&>(*event));
            case QEvent::MouseButtonRelease:
                start_.reset();
                return std::exchange(dragging_, false);
            default:
                return false;
        }
    }

  private:
    void press(const QMouseEvent& event) {
        dragging_ = false;
        start_.reset();
        if (event.button() == Qt::LeftButton && row_.occupied()) {
            start_ = event.globalPosition();
        }
    }

    /// Whether the views do not see it.
    bool move(const QMouseEvent& event) {
        const bool begins = start_ && event.buttons().testFlag(Qt::LeftButton) && row_.occupied() &&
                            QLineF(*start_, event.globalPosition()).length() >= onScreen(farEnough);
        if (begins && row_.delegate() != nullptr) {
            start_.reset();
            dragging_ = true;
            row_.button()->setDown(false);
            row_.field()->letGo();
            row_.delegate()->dragBegunForSlot(row_);
            return true;
        }
        dragging_ =
            dragging_ && event.buttons().testFlag(Qt::LeftButton);  // the toolkit's drag has its release
        return dragging_;
    }

    Slot& row_;
    std::optional<QPointF> start_;  ///< of a press, on the screen
    bool dragging_ = false;
};

}  // namespace

void watchForDrag(Slot& row) {
    new RowDrag(row);  // NOLINT(cppcoreguidelines-owning-memory): the row's child
}

}  // namespace kzq
