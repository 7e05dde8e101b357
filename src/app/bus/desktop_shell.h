#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "platform/fixed.h"

namespace kzq {

/// What the desktop shows of the program beside its windows. Nothing here waits. Main thread.
class DesktopShell : Fixed {
  public:
    virtual ~DesktopShell() = default;

    /// Whether one of the program's windows has the keyboard focus.
    virtual bool inFront() const = 0;
    /// On the program's icon, from 0 to 1; nothing takes it away.
    virtual void showProgress(std::optional<double> fraction) = 0;
    /// A notification, in place of the one before.
    virtual void notify(const QString& sentence) = 0;
    /// What a click on a notification does; comes from the main loop.
    virtual void setClicked(std::function<void()> clicked) = 0;
};

}  // namespace kzq
