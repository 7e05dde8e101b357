#pragma once

namespace kzq {

class MenuItem;

/// Notified of what the pointer does on an entry. Main thread.
class MenuItemDelegate {
  public:
    MenuItemDelegate() = default;
    MenuItemDelegate(const MenuItemDelegate&) = delete;
    MenuItemDelegate& operator=(const MenuItemDelegate&) = delete;
    MenuItemDelegate(MenuItemDelegate&&) = delete;
    MenuItemDelegate& operator=(MenuItemDelegate&&) = delete;
    virtual ~MenuItemDelegate() = default;

    virtual void itemEntered(MenuItem& item) = 0;
    virtual void itemExited(MenuItem& item) = 0;
    virtual void itemClicked(MenuItem& item) = 0;
};

}  // namespace kzq
