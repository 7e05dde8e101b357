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

/// The menu inside the main window. It carries out what is clicked; the application controller shows and
/// hides it and handles the keys. Main thread.
///
/// To open it: clear the highlight, show the view, focus it (`view().setFocus()`), set the title from the
/// held keys (`setFirmwareTitle(modifiers())`), and last hide the button that opens it, so that the focus
/// does not move elsewhere. To close it: hide the view, show that button and give it the focus if the view
/// had it.
class Menu : public QObject, public MenuItemDelegate {
    Q_OBJECT

  public:
    using ModifierProbe = std::function<Qt::KeyboardModifiers()>;

    /// The view becomes a hidden child of `parent`, the main window's content. `controller` and `dialogs`
    /// must outlive the menu. Nothing if an entry cannot be created.
    static std::unique_ptr<Menu> menu(ApplicationController& controller, Dialogs& dialogs, QWidget* parent,
                                      const Product& product);
    ~Menu() override;

    /// Owned by its parent, or by the menu if destroyed first; null once the parent is destroyed.
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
    /// "Select Firmware..." if `modifiers` has both, else "Firmware Update...".
    void setFirmwareTitle(Qt::KeyboardModifiers modifiers);

    /// The modifier keys held now, from the probe.
    Qt::KeyboardModifiers modifiers() const { return modifierProbe_(); }
    /// Replaces asking the window system.
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
