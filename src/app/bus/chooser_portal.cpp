#include "app/bus/chooser_portal.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QVariant>
#include <utility>

namespace kzq {

namespace {

constexpr auto portal = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto choosers = "org.freedesktop.portal.FileChooser";

}  // namespace

ChooserPortal::ChooserPortal(QDBusConnection bus, const QByteArray& theme) : bus_(std::move(bus)) {
    if (!theme.contains("xdgdesktopportal") || !bus_.isConnected()) {
        return;
    }
    auto* const watcher =
        new QDBusServiceWatcher(portal, bus_, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &ChooserPortal::look);
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        missing_ = true;
        Q_EMIT ended();
    });
    look();
}

/// Starts it, too, if the bus knows how.
void ChooserPortal::look() {
    auto call = QDBusMessage::createMethodCall(portal, portalPath, "org.freedesktop.DBus.Properties", "Get");
    call << QString(choosers) << QString("version");
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        missing_ = answer->isError();
        answer->deleteLater();
    });
}

}  // namespace kzq
