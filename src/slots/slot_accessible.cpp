#include "slots/slot_accessible.h"

#include <QAccessibleWidget>

#include "slots/slot.h"
#include "ui/accessible_controls.h"

namespace kzq {

namespace {

class SlotFieldAccessible : public QAccessibleWidget {
  public:
    explicit SlotFieldAccessible(SlotField* field) : QAccessibleWidget(field, QAccessible::StaticText) {}

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.focusable = takesFocus(*widget());
        return seenThrough(*widget(), state);
    }

    QStringList actionNames() const override {
        QStringList names;
        if (canRename()) {
            names << pressAction();
        }
        if (takesFocus(*widget())) {
            names << setFocusAction();
        }
        return seenThrough(*widget(), names);
    }

    void doAction(const QString& name) override {
        if (!actionNames().contains(name)) {
            return;
        }
        if (name == pressAction()) {
            static_cast<SlotField*>(widget())->startRenaming();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

  private:
    bool canRename() const {
        const auto* const field = static_cast<const SlotField*>(widget());
        return field->isEnabled() && field->controller() != nullptr && !field->controller()->isExport();
    }
};

QAccessibleInterface* interfaceOf(const QString& /*className*/, QObject* object) {
    auto* const field = qobject_cast<SlotField*>(object);
    return field != nullptr ? new SlotFieldAccessible(field) : nullptr;
}

}  // namespace

void installSlotAccessibility() {
    static const bool once = (QAccessible::installFactory(interfaceOf), true);
    static_cast<void>(once);
}

}  // namespace kzq
