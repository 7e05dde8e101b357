#include "ui/panels/accessible_panels.h"

#include <QAbstractScrollArea>
#include <QAccessibleWidget>
#include <QDialog>

#include "ui/accessible_controls.h"
#include "ui/panels/about_backing.h"
#include "ui/panels/backup_row.h"
#include "ui/panels/menu_item.h"
#include "ui/panels/menu_item_view.h"
#include "ui/panels/menu_view.h"
#include "ui/panels/pick_list.h"
#include "ui/panels/progress_views.h"
#include "ui/window.h"

namespace kzq {
namespace {

class AccessibleItem : public QAccessibleWidget {
  public:
    explicit AccessibleItem(MenuItemView* view) : QAccessibleWidget(view, QAccessible::MenuItem) {}

    /// The label repeats the name.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    /// The keyboard focus is on the menu; assistive technology sees it on the highlighted entry.
    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        const auto* item = view()->controller();
        state.focusable = true;
        state.focused = item != nullptr && item->hovered();
        return seenThrough(*view(), state);
    }

    QStringList actionNames() const override {
        return view()->isVisible() ? seenThrough(*view(), QStringList{pressAction()}) : QStringList();
    }
    void doAction(const QString& action) override {
        if (actionNames().contains(action)) {
            view()->click();
        }
    }

  private:
    MenuItemView* view() const { return qobject_cast<MenuItemView*>(object()); }
};

class AccessibleTrack : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit AccessibleTrack(ProgressTrack* track) : QAccessibleWidget(track, QAccessible::ProgressBar) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return qobject_cast<ProgressTrack*>(object())->value(); }
    void setCurrentValue(const QVariant& /*value*/) override {}
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return 100; }
    QVariant minimumStepSize() const override { return 1; }
};

/// Widgets that Qt takes for mere parts: it knows only its own kinds of windows. The main window speaks for
/// itself.
bool isPlainWindow(const QWidget& widget) {
    return widget.isWindow() && qobject_cast<const Window*>(&widget) == nullptr &&
           widget.windowType() != Qt::Popup && widget.windowType() != Qt::ToolTip &&
           qobject_cast<const QDialog*>(&widget) == nullptr &&
           qobject_cast<const QAbstractScrollArea*>(&widget) == nullptr;  // which has no place yet
}

QAccessibleInterface* accessibleFor(const QString& /*className*/, QObject* object) {
    if (auto* item = qobject_cast<MenuItemView*>(object)) {
        return new AccessibleItem(item);
    }
    if (auto* track = qobject_cast<ProgressTrack*>(object)) {
        return new AccessibleTrack(track);
    }
    if (auto* menu = qobject_cast<MenuView*>(object)) {
        return coverable(*menu, QAccessible::PopupMenu);
    }
    if (auto* entry = qobject_cast<PickList*>(object)) {
        return new QAccessibleWidget(entry,
                                     QAccessible::ListItem);  // has the name of the entry that is marked
    }
    if (auto* row = qobject_cast<BackupRow*>(object)) {
        return new QAccessibleWidget(row, QAccessible::ListItem);
    }
    if (auto* backing = qobject_cast<AboutBacking*>(object)) {
        return new QAccessibleWidget(backing, QAccessible::Pane);
    }
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget != nullptr && isPlainWindow(*widget)) {
        return new QAccessibleWidget(widget, QAccessible::Window);
    }
    return nullptr;
}

}  // namespace

void installAccessiblePanels() {
    QAccessible::installFactory(accessibleFor);  // a factory already installed is not added again
}

}  // namespace kzq
