#pragma once

#include <QDBusConnection>
#include <QObject>

#include "app/bus/desktop_shell.h"

namespace kzq {

/// The desktop at the other end of a session bus: its launcher by com.canonical.Unity.LauncherEntry, which
/// most docks and task bars understand, its notifications by org.freedesktop.Notifications. Without a bus, or
/// where nobody listens, nothing happens.
class BusDesktopShell : public QObject, public DesktopShell {
    Q_OBJECT

  public:
    /// `program`: its name as shown to the user; `entry`: of its desktop file, without ".desktop".
    BusDesktopShell(QDBusConnection bus, QString program, QString entry);

    bool inFront() const override;
    void showProgress(std::optional<double> fraction) override;
    void notify(const QString& sentence) override;
    void setClicked(std::function<void()> clicked) override { clicked_ = std::move(clicked); }

  private:
    Q_SLOT void tokenGiven(uint id, const QString& token) const;
    Q_SLOT void actionInvoked(uint id, const QString& action);
    void listen();

    QDBusConnection bus_;
    const QString program_;
    const QString entry_;
    std::function<void()> clicked_;
    std::optional<int> percent_;  ///< that the launcher shows
    unsigned shown_ = 0;          ///< the number of the notification; 0 before the first
    bool listens_ = false;
};

}  // namespace kzq
