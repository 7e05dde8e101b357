#include "ui/accessible_controls.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QStackedWidget>

#include "ui/background.h"
#include "ui/key_button.h"
#include "ui/meter.h"
#include "ui/shield.h"
#include "ui/tab_button.h"
#include "ui/window.h"

namespace kzq {

namespace {

constexpr auto listOpened = "listOpened";

/// A widget that a shield puts out of reach.
class Coverable : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::State state() const override { return seenThrough(*widget(), QAccessibleWidget::state()); }
    QStringList actionNames() const override {
        return seenThrough(*widget(), QAccessibleWidget::actionNames());
    }
    void doAction(const QString& action) override {
        if (actionNames().contains(action)) {
            QAccessibleWidget::doAction(action);
        }
    }
};

class AccessibleButton : public Coverable {
  public:
    explicit AccessibleButton(KeyButton* button) : Coverable(button) {}

    /// It may be made checkable later.
    QAccessible::Role role() const override {
        if (qobject_cast<const TabButton*>(widget()) != nullptr) {
            return QAccessible::PageTab;
        }
        return button().isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
    }

    QAccessible::State state() const override {
        auto state =
            QAccessibleWidget::state();  // NOLINT(bugprone-parent-virtual-call): covered below, as a whole
        state.focusable = takesFocus(button());
        state.checkable = button().isCheckable();
        state.checked = button().isChecked();
        state.pressed = button().isDown();
        if (const auto* const tab = qobject_cast<const TabButton*>(widget())) {
            state.selectable = true;
            state.selected = tab->selected();
        }
        if (const auto list = button().property(listOpened); list.isValid()) {
            const auto* const opened = list.value<QPointer<QWidget>>().data();
            state.hasPopup = true;
            state.expandable = opened != nullptr;
            state.expanded = opened != nullptr && opened->isVisible();
        }
        return seenThrough(*widget(), state);
    }

    QString text(QAccessible::Text kind) const override {
        const auto words = QAccessibleWidget::text(kind);
        if (kind == QAccessible::Description && text(QAccessible::Name).startsWith(words)) {
            return {};  // its tool tip, once more
        }
        return words.isEmpty() && kind == QAccessible::Name ? button().text() : words;
    }

    QStringList actionNames() const override {
        if (!button().isEnabled()) {
            return {};
        }
        QStringList names{button().isCheckable() ? toggleAction() : pressAction()};
        if (takesFocus(button())) {
            names.append(setFocusAction());
        }
        return seenThrough(*widget(), names);
    }

    /// A press may open a dialog, which whoever asks for it does not wait for.
    void doAction(const QString& action) override {
        if (!actionNames().contains(action)) {
            return;
        }
        if (action == pressAction()) {
            button().animateClick();
        } else if (action == toggleAction()) {
            button().toggle();
        } else {
            Coverable::doAction(action);
        }
    }

  private:
    KeyButton& button() const { return static_cast<KeyButton&>(*widget()); }
};

class AccessibleMeter : public Coverable, public QAccessibleValueInterface {
  public:
    /// Not a progress bar: that would be read out with each change.
    explicit AccessibleMeter(Meter* meter) : Coverable(meter, QAccessible::Graphic) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override {
        return QAccessibleWidget::text(kind == QAccessible::Value ? QAccessible::Description : kind);
    }
    QVariant currentValue() const override { return meter().used(); }
    void setCurrentValue(const QVariant& /*value*/) override {}
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return meter().capacity(); }
    QVariant minimumStepSize() const override { return 1; }

  private:
    const Meter& meter() const { return static_cast<const Meter&>(*widget()); }
};

/// Under a shield it has no other child.
class AccessibleWindow : public QAccessibleWidget {
  public:
    explicit AccessibleWindow(Window* window) : QAccessibleWidget(window, QAccessible::Window) {}

    int childCount() const override { return shield() != nullptr ? 1 : QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override {
        auto* const over = shield();
        if (over == nullptr) {
            return QAccessibleWidget::child(index);
        }
        return index == 0 ? QAccessible::queryAccessibleInterface(over) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* const over = shield();
        if (over == nullptr) {
            return QAccessibleWidget::indexOfChild(child);
        }
        return child != nullptr && child->object() == over ? 0 : -1;
    }

  private:
    Shield* shield() const { return Shield::over(*widget()); }
};

QAccessibleInterface* accessibleControl(const QString& /*className*/, QObject* object) {
    if (auto* const button = qobject_cast<KeyButton*>(object)) {
        return new AccessibleButton(button);
    }
    if (auto* const tabs = qobject_cast<TabList*>(object)) {
        return new QAccessibleWidget(tabs, QAccessible::PageTabList);
    }
    if (auto* const meter = qobject_cast<Meter*>(object)) {
        return new AccessibleMeter(meter);
    }
    if (auto* const ground = qobject_cast<Background*>(object)) {
        return coverable(*ground, QAccessible::Client);
    }
    if (auto* const pages = qobject_cast<QStackedWidget*>(object);
        pages != nullptr && qobject_cast<const Window*>(pages->window()) != nullptr) {
        return coverable(*pages, QAccessible::Client);  // not a "layered pane", which would be read out
    }
    if (auto* const window = qobject_cast<Window*>(object)) {
        return new AccessibleWindow(window);
    }
    return nullptr;
}

}  // namespace

void installAccessibleControls() {
    QAccessible::installFactory(accessibleControl);  // a factory already installed is not added again
}

QAccessibleInterface* coverable(QWidget& widget, QAccessible::Role role) {
    return new Coverable(&widget, role);
}

bool takesFocus(const QWidget& widget) {
    return widget.isEnabled() &&
           (widget.focusPolicy() != Qt::NoFocus || widget.property(reachedByArrows).toBool());
}

void opens(QWidget& button, QWidget* list) {
    button.setProperty(listOpened, QVariant::fromValue(QPointer<QWidget>(list)));
}

QAccessible::State seenThrough(const QWidget& widget, QAccessible::State state) {
    if (Shield::covers(widget)) {
        state.disabled = true;
        state.focusable = false;
    }
    return state;
}

QStringList seenThrough(const QWidget& widget, const QStringList& actions) {
    return Shield::covers(widget) ? QStringList() : actions;
}

}  // namespace kzq
