#pragma once

#include "platform/fixed.h"

namespace kzq {

class MenuItem;

/// Notified of what the pointer does on an entry. Main thread.
class MenuItemDelegate : Fixed {
  public:
    virtual ~MenuItemDelegate() = default;

    virtual void itemEntered(MenuItem& item) = 0;
    virtual void itemExited(MenuItem& item) = 0;
    virtual void itemClicked(MenuItem& item) = 0;
};

}  // namespace kzq
