#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include "ui/panels/menu_item.h"
#include "ui/panels/menu_item_delegate.h"
#include "ui/panels/menu_view.h"
#include "ui/panels/product.h"

namespace kzq {

class ApplicationController;
class Dialogs;

/// The menu inside the main window. It carries out what is clicked; showing, hiding and the keys are the
/// application controller's. Main thread.
///
/// Whoever opens it: clears the highlight, shows the view, gives it the keyboard (`view().setFocus()`), sets
/// the title from the keys that are held (`setFirmwareTitle(modifiers())`), and hides the button that opens
/// it last, so that the focus does not wander. Whoever closes it hides the view, shows that button and gives
/// it the focus if the view had it.
class Menu : public QObject, public MenuItemDelegate {
    Q_OBJECT

  public:
    using ModifierProbe = std::function<Qt::KeyboardModifiers()>;

    /// The view becomes a hidden child of `parent`, the main window's content. `controller` and `dialogs`
    /// must outlive the menu. Nothing when an entry cannot be made.
    static std::unique_ptr<Menu> menu(ApplicationController& controller, Dialogs& dialogs, QWidget* parent,
                                      const Product& product);
    ~Menu() override;
    Menu(const Menu&) = delete;
    Menu& operator=(const Menu&) = delete;
    Menu(Menu&&) = delete;
    Menu& operator=(Menu&&) = delete;

    /// Owned by its parent, or by the menu if that goes first; null once the parent is gone.
    MenuView* view() const { return view_; }

    MenuItem& about() { return *items_[0]; }
    MenuItem& software() { return *items_[1]; }
    MenuItem& firmware() { return *items_[2]; }
    MenuItem& website() { return *items_[3]; }
    /// The same, top to bottom.
    std::array<MenuItem*, 4> items();

    /// Whether `point`, in coordinates of the window that the view is in, lies inside the body. The tab above
    /// the body, where the button is, counts as outside.
    bool hitTest(QPoint point) const;

    /// Whether Command (Ctrl) and Shift are both among `modifiers`.
    static bool selectsFirmware(Qt::KeyboardModifiers modifiers);
    /// "Select Firmware..." when `modifiers` hold both, else "Firmware Update...".
    void setFirmwareTitle(Qt::KeyboardModifiers modifiers);

    /// The modifier keys held at this moment, by the probe.
    Qt::KeyboardModifiers modifiers() const { return modifierProbe_(); }
    /// In place of asking the window system.
    void setModifierProbe(ModifierProbe probe) { modifierProbe_ = std::move(probe); }

    void itemEntered(MenuItem& item) override;
    void itemExited(MenuItem& item) override;
    void itemClicked(MenuItem& item) override;

  private:
    Menu(ApplicationController& controller, Dialogs& dialogs, Product product);
    bool loadView(QWidget* parent);
    bool populateSlots(const std::array<QWidget*, 4>& slotViews);
    void hoverOnly(const MenuItem* item);
    void selectFirmware();

    ApplicationController& controller_;
    Dialogs& dialogs_;
    Product product_;
    ModifierProbe modifierProbe_;
    QPointer<MenuView> view_;
    QPointer<QWidget> body_;
    std::array<std::unique_ptr<MenuItem>, 4> items_;
};

}  // namespace kzq
